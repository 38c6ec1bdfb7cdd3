unit Formless;

interface

uses
  Forms;

type
  TFormlessForm = class(TForm)
  end;

implementation

end.

unit Framed;

interface

uses
  Forms;

type
  TFramedForm = class(TForm)
  end;

implementation

end.

unit Gone;

interface

uses
  Classes, Forms, StdCtrls;

type
  TGoneForm = class(TForm)
    Button1: TButton;
  end;

implementation

end.

unit Good;

interface

uses
  Classes, Forms, StdCtrls;

type
  TGoodForm = class(TForm)
    Button1: TButton;
  end;

implementation

end.

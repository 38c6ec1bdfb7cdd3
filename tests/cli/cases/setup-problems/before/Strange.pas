unit Strange;

interface

uses
  Classes, Forms, StdCtrls;

type
  TOther = class(TForm)
    Button1: TButton;
  end;

implementation

end.

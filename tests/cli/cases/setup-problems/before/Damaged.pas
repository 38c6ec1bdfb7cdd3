unit Damaged;

interface

uses
  Classes, Forms, StdCtrls;

type
  TDamagedForm = class(TForm)
    Button1: TButton;
  end;

implementation

end.

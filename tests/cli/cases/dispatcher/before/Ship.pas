unit Ship;

interface

uses
  Classes, Controls, Forms, Mllang;

type
  TShipForm = class(TForm)
    mlLang1: TmlLang;
  end;

implementation

{$R *.dfm}

end.

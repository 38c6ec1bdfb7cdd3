unit Ship;

interface

uses
  Forms;

type
  TShipForm = class(TForm)
    mlLang1: TmlLang;
  end;

var
  ShipForm: TShipForm;

implementation

{$R *.dfm}

end.

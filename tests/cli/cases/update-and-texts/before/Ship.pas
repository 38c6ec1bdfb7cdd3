unit Ship;

interface

uses
  Forms, StdCtrls, ComCtrls, Base, Mllang;

type
  TShipForm = class(TBaseForm)
    lvCargo: TListView;
    memHelp: TMemo;
    edtName: TEdit;
  end;

var
  ShipForm: TShipForm;

implementation

{$R *.dfm}

end.

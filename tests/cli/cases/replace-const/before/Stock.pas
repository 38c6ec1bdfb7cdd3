unit Stock;

interface

uses
  Classes;

type
  TStockData = class(TDataModule)
  private
    const Empty: PChar = 'sold out';
  end;

const
  Report = 'First line'#13#10 +
    'second line';

var
  StockData: TStockData;

implementation

{$R *.dfm}

initialization
  StockData := nil;
end.

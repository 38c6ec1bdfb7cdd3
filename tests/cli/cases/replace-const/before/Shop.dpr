program Shop;

uses
  Forms,
  Main in 'Main.pas' {MainForm},
  Stock in 'Stock.pas' {StockData: TDataModule},
  Prices in 'Prices.pas',
  Broken in 'Broken.pas',
  Old in 'Old.pp';

begin
  Application.Initialize;
  Application.CreateForm(TMainForm, MainForm);
  Application.CreateForm(TStockData, StockData);
  Application.Run;
end.

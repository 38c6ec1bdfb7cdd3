program Orchard;

{ A small order book for a fruit farm. It is the sample that the first steps of the manual work on. }

uses
  Forms,
  {$IFDEF DEBUG}
  Tracing in 'units\Tracing.pas',
  {$ENDIF}
  Main in 'Main.pas' {MainForm},
  Customers in 'forms\Customers.pas' {CustomersForm},
  Basedialog in 'forms\Basedialog.pas' {BaseDialog},
  Orderdialog in 'forms\Orderdialog.pas' {OrderDialog},
  Addressframe in 'forms\Addressframe.pas' {AddressFrame: TFrame},
  Orchard.Data in 'units\Orchard.Data.pas' {OrchardData: TDataModule},
  Reports in 'Forms\REPORTS.PAS' {ReportForm},
  About in 'forms\About.pas' {AboutBox},
  Pricing in 'units\Pricing.pas',
  Fruitnames in 'units\Fruitnames.pas',
  Lettersru in 'units\Lettersru.pas',
  Lettersel in 'units\Lettersel.pas';

{$R *.res}

begin
  Application.Initialize;
  Application.Title := 'Orchard';
  Application.CreateForm(TOrchardData, OrchardData);
  Application.CreateForm(TMainForm, MainForm);
  Application.CreateForm(TReportForm, ReportForm);
  Application.Run;
end.

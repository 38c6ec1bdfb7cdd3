program P;
uses
  Forms,
  {$IFDEF DEBUG} Tracing in 'units\Tracing.pas', {$ENDIF}
  Main in 'Main.pas' {MainForm},
  Orchard.Data in '..\Data.pas' {Data: TDataModule};
{$R *.res}
begin
end.

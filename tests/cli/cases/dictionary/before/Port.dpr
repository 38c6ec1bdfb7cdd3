program Port;

uses
  Forms,
  Main in 'Main.pas' {MainForm},
  Berth in 'Berth.pas' {BerthForm},
  Plain in 'Plain.pas' {PlainForm};

begin
end.

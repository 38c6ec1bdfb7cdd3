program One;

uses
  Forms, Main in 'Main.pas' {MainForm}, Plain in 'Plain.pas' {PlainForm};

begin
end.

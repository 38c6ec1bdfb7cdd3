program One;

uses
  Forms, Main in 'Main.pas' {MainForm};

begin
end.

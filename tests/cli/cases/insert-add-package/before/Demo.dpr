program Demo;

uses
  Forms, Main in 'Main.pas' {MainForm};

begin
end.

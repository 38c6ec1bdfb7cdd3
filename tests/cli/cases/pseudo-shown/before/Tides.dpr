program Tides;

uses
  Forms, Main in 'Main.pas' {MainForm};

begin
end.

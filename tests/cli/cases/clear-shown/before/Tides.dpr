program Tides;

uses
  Forms, Main in 'Main.pas' {MainForm}, Heir in 'Heir.pas' {HeirForm};

begin
end.

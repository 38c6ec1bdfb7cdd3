program Twice;

uses
  Forms,
  Unit1 in 'units/Unit1.pas' {Form1},
  Texts in 'units/Texts.pas',
  Linked in 'link/Texts.pas';

begin
end.

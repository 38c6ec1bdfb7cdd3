program Problems;

uses
  Forms,
  Good in 'Good.pas' {GoodForm},
  Gone in 'Gone.pas' {GoneForm},
  Damaged in 'Damaged.pas' {DamagedForm},
  Strange in 'Strange.pas' {StrangeForm};

begin
  Application.Run;
end.

program Names;

uses
  Forms,
  Named in 'Named.pas' {PlanForm},
  First in 'First.pas' {TwinForm},
  Second in 'Second.pas' {TwinForm};

begin
end.

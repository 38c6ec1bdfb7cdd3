program Fleet;

uses
  Forms,
  Base in 'Base.pas' {BaseForm},
  Ship in 'Ship.pas' {ShipForm},
  Plain in 'Plain.pas' {PlainForm};

begin
end.

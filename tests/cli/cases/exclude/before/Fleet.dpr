program Fleet;

uses
  Forms,
  Ship in 'Ship.pas' {ShipForm},
  Harbour in 'Harbour.pas' {HarbourForm},
  Plain in 'Plain.pas' {PlainForm};

begin
end.

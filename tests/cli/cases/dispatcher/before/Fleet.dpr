program Fleet;

uses
  Forms,
  Data in 'Data.pas' {Data: TDataModule},
  Ship in 'Ship.pas' {ShipForm},
  Berth in 'Berth.pas' {BerthForm},
  Pier in 'Pier.pas' {PierForm};

begin
end.

program Broken;

uses
  Good in 'Good.pas' {GoodForm},
  Missing in 'gone\Missing.pas' {MissingForm},
  Cutoff in 'Cutoff.pas' {CutoffForm},
  Photo in 'Photo.pas' {PhotoForm},
  Classless in 'Classless.pas' {ClasslessForm};

begin
end.

program Orphan;

uses
  Forms,
  Child in 'Child.pas' {ChildForm};

begin
end.

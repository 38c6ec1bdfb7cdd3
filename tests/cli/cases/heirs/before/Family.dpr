program Family;

uses
  Forms,
  Grand in 'Grand.pas' {GrandForm},
  Child in 'Child.pas' {ChildForm},
  Base in 'Base.pas' {BaseForm};

begin
end.

program Damaged;

uses
  Forms,
  One in 'One.pas' {OneForm},
  Two in 'Two.pas' {TwoForm},
  Cut in 'Cut.pas' {CutForm};

begin
end.

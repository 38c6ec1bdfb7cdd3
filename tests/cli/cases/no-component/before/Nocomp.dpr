program Nocomp;

uses
  Forms,
  Formless in 'Formless.pas' {FormlessForm},
  Framed in 'Framed.pas' {FramedForm};

begin
end.

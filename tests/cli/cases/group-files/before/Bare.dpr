program Bare;

uses
  Forms, Plain in 'Plain.pas' {PlainForm};

begin
end.

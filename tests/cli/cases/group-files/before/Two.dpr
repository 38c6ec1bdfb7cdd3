program Two;

uses
  Forms, Second in 'Second.pas' {SecondForm};

begin
end.

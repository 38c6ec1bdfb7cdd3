program Tides;

uses
  Interfaces, Forms, Main;

begin
end.

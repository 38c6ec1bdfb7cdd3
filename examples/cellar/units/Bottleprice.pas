unit Bottleprice;

interface

function BottleText(Litres: Double; Price: Currency): string;

implementation

uses
  SysUtils;

function BottleText(Litres: Double; Price: Currency): string;
begin
  if Litres >= 1.5 then
    Result := 'Magnum'
  else if Litres < 0.5 then
    Result := 'Half bottle'
  else
    Result := 'Bottle';
  Result := Result + ' at ' + FormatFloat('0.00', Price);
end;

end.

unit Pricing;

interface

function PriceText(Price: Currency): string;

implementation

uses
  SysUtils;

function PriceText(Price: Currency): string;
begin
  if Price = 0 then
    Result := 'for free'
  else
    Result := FormatFloat('#,##0.00', Price) + ' a kilo';
end;

end.

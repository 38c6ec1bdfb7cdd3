unit Prices;

interface

const
  Cheap = 'cheap as chips';
  Dear = 'Shop';
  Mixed = Cheap + ' or not';

function PriceText(Price: Integer): string;

implementation

function PriceText(Price: Integer): string;
begin
  if Price < 10 then
    Result := Cheap
  else
    Result := Dear;
end;

end.

unit Texts;

interface

function Greeting: string;

implementation

function Greeting: string;
begin
  Result := 'Good day';
end;

end.

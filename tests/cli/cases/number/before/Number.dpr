program Number;
uses Good in 'Good.pas' {GoodForm};
begin
end.

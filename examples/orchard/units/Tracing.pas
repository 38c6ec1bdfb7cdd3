unit Tracing;

interface

procedure Trace(const Line: string);

implementation

procedure Trace(const Line: string);
begin
  WriteLn('trace: ', Line);
end;

end.

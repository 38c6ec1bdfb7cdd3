{ Expectations of the test programs. }
unit Mltesting;

{$MODE Delphi}

interface

procedure Expect(Holds: Boolean; const What: string);
procedure ExpectText(const Expected, Actual, What: string);

{ Prints how many expectations held; the exit code tells whether all did. }
procedure CloseTests;

implementation

var
  Passed, Failed: Integer;

procedure Expect(Holds: Boolean; const What: string);
begin
  if Holds then
    Inc(Passed)
  else
  begin
    Inc(Failed);
    WriteLn('FAILED: ', What);
    Flush(Output);
  end;
end;

procedure ExpectText(const Expected, Actual, What: string);
begin
  Expect(Expected = Actual, What + ': expected "' + Expected + '", got "' + Actual + '"');
end;

procedure CloseTests;
begin
  WriteLn(Passed, ' passed, ', Failed, ' failed');
  if Failed > 0 then ExitCode := 1;
end;

end.

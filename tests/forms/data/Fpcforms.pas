{ Converts forms with the run-time library: Fpcforms MODE LIST, where each line of LIST is a source and a
  target, separated by a tab. A form that the library refuses gives no target. }
program Fpcforms;
{$mode objfpc}{$H+}
uses
  Classes, SysUtils;

procedure Convert(const Mode, Source, Target: string);
var
  Input, Output: TMemoryStream;
begin
  Input := TMemoryStream.Create;
  Output := TMemoryStream.Create;
  try
    Input.LoadFromFile(Source);
    if Mode = 'binary' then
      ObjectTextToResource(Input, Output)
    else
      ObjectResourceToText(Input, Output);
    Output.SaveToFile(Target);
  finally
    Input.Free;
    Output.Free;
  end;
end;

var
  Lines: TStringList;
  Line: string;
  Split: Integer;
begin
  Lines := TStringList.Create;
  Lines.LoadFromFile(ParamStr(2));
  for Line in Lines do
  begin
    Split := Pos(#9, Line);
    try
      Convert(ParamStr(1), Copy(Line, 1, Split - 1), Copy(Line, Split + 1, MaxInt));
    except
      on E: Exception do
        WriteLn(Copy(Line, 1, Split - 1), ': ', E.Message);
    end;
  end;
  Lines.Free;
end.

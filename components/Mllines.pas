{ A text of several lines, as a table holds it: a line feed between them. }
unit Mllines;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes;

type
  TmlLines = array of string;

function SplitLines(const Text: string): TmlLines;
{ What a list with a line break inside a line gives is no such text; it reads as another than any. }
function JoinLines(Lines: TStrings): string;

implementation

uses
  StrUtils;

function SplitLines(const Text: string): TmlLines;
var
  From, Behind, Count: Integer;
begin
  Count := 1;
  for From := 1 to Length(Text) do
    if Text[From] = #10 then Inc(Count);
  Result := nil;
  SetLength(Result, Count);
  From := 1;
  for Count := 0 to High(Result) do
  begin
    Behind := PosEx(#10, Text, From);
    if Behind = 0 then Behind := Length(Text) + 1;
    Result[Count] := Copy(Text, From, Behind - From);
    From := Behind + 1;
  end;
end;

function JoinLines(Lines: TStrings): string;
var
  I: Integer;
begin
  Result := '';
  for I := 0 to Lines.Count - 1 do
    if I = 0 then Result := Lines[0] else Result := Result + #10 + Lines[I];
end;

end.

{ The fields of a line of a table: the key, then a value a language. An escape is a rare control character and a
  letter for what it stands for; a raw line can be split at the delimiter. }
unit Mlcodec;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

type
  TmlFields = array of string;

const
  { Where a component names none. }
  DefaultDelimiter = #1;

{ The character that a component names as its delimiter: the first one, UTF-8. }
function DelimiterOf(const Stored: string): string;

{ The field at a 0-based place, decoded; False where the line has no such field. }
function FieldAt(const Line, Delimiter: string; Place: Integer; out Field: string): Boolean;

{ All fields, the key first. }
function SplitFields(const Line, Delimiter: string): TmlFields;

{ The line of such fields. }
function JoinFields(const Fields: array of string; const Delimiter: string): string;

implementation

uses
  StrUtils, SysUtils;

function DelimiterOf(const Stored: string): string;
var
  Size: Integer;
begin
  if Stored = '' then
  begin
    Result := DefaultDelimiter;
    Exit;
  end;
  Size := 1;
  while (Size < Length(Stored)) and (Ord(Stored[Size + 1]) and $C0 = $80) do
    Inc(Size);
  Result := Copy(Stored, 1, Size);
end;

function MarkFor(const Delimiter: string): Char;
begin
  Result := #2;
  if Delimiter = #2 then Result := #3;
end;

{ What the letter behind a mark stands for; '' where it is none of the escapes. A letter that is itself the delimiter
  is written as a capital. }
function MeaningOf(Letter: Char; const Delimiter: string; Mark: Char): string;
begin
  if Letter = Delimiter then
    Result := ''
  else if (Letter in ['A'..'Z']) and (LowerCase(Letter) <> Delimiter) then
    Result := ''
  else
    case Letter of
      'd', 'D': Result := Delimiter;
      'r', 'R': Result := #13;
      'n', 'N': Result := #10;
      'e', 'E': Result := Mark;
    else
      Result := '';
    end;
end;

{ A mark without one of the letters behind it stands for itself. }
function Decoded(const Field, Delimiter: string): string;
var
  Mark: Char;
  From, At: Integer;
  Meaning: string;
begin
  Mark := MarkFor(Delimiter);
  Result := Field;
  At := Pos(Mark, Field);
  if At = 0 then Exit;
  Result := '';
  From := 1;
  while (At > 0) and (At < Length(Field)) do
  begin
    Meaning := MeaningOf(Field[At + 1], Delimiter, Mark);
    if Meaning = '' then
      Result := Result + Copy(Field, From, At - From + 1)
    else
      Result := Result + Copy(Field, From, At - From) + Meaning;
    From := At + 1 + Ord(Meaning <> '');
    At := PosEx(Mark, Field, From);
  end;
  Result := Result + Copy(Field, From, MaxInt);
end;

function FieldAt(const Line, Delimiter: string; Place: Integer; out Field: string): Boolean;
var
  From, Behind: Integer;
begin
  From := 1;
  Behind := PosEx(Delimiter, Line, From);
  while (Place > 0) and (Behind > 0) do
  begin
    From := Behind + Length(Delimiter);
    Behind := PosEx(Delimiter, Line, From);
    Dec(Place);
  end;
  Result := Place = 0;
  if not Result then
  begin
    Field := '';
    Exit;
  end;
  if Behind = 0 then Behind := Length(Line) + 1;
  Field := Decoded(Copy(Line, From, Behind - From), Delimiter);
end;

function SplitFields(const Line, Delimiter: string): TmlFields;
var
  From, Behind, Count: Integer;
begin
  Result := nil;
  Count := 0;
  From := 1;
  repeat
    Behind := PosEx(Delimiter, Line, From);
    if Behind = 0 then Behind := Length(Line) + 1;
    if Count = Length(Result) then SetLength(Result, 2 * Count + 4);
    Result[Count] := Decoded(Copy(Line, From, Behind - From), Delimiter);
    Inc(Count);
    From := Behind + Length(Delimiter);
  until Behind > Length(Line);
  SetLength(Result, Count);
end;

function Escape(Letter: Char; const Delimiter: string): string;
begin
  if Letter = Delimiter then Letter := UpCase(Letter);
  Result := MarkFor(Delimiter) + Letter;
end;

function Encoded(const Field, Delimiter: string): string;
begin
  Result := StringReplace(Field, MarkFor(Delimiter), Escape('e', Delimiter), [rfReplaceAll]);
  Result := StringReplace(Result, #13, Escape('r', Delimiter), [rfReplaceAll]);
  Result := StringReplace(Result, #10, Escape('n', Delimiter), [rfReplaceAll]);
  Result := StringReplace(Result, Delimiter, Escape('d', Delimiter), [rfReplaceAll]);
end;

function JoinFields(const Fields: array of string; const Delimiter: string): string;
var
  I: Integer;
begin
  Result := '';
  for I := 0 to High(Fields) do
  begin
    if I > 0 then Result := Result + Delimiter;
    Result := Result + Encoded(Fields[I], Delimiter);
  end;
end;

end.

{ The lines of a text translation file, "key=field D field". D may be any text that is not empty, and every text
  survives it, in one line. A line is read from left to right, escapes before the delimiter: since a field never holds
  the delimiter's first character as it is, whatever looks like a delimiter is one. }
unit Mlfilefields;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mlcodec;

type
  TmlFields = Mlcodec.TmlFields;

  { An entry of a translation file: a field a language. }
  TmlFileEntry = record
    Key: string;
    Fields: TmlFields;
  end;

  TmlFileFields = class
  private
    FDelimiter, FFirst: string;
    FMark: Char;
    function Escaped(const Text: string; Pos: Integer; IsKey, AtEnd: Boolean): Char;
    function Encoded(const Text: string; IsKey, IsFirst, IsLast: Boolean): string;
    procedure ReadCharacter(const Line: string; var Pos: Integer; var Text: string);
  public
    constructor Create(const Delimiter: string);
    function Write(const Entry: TmlFileEntry): string;
    { A line without "=" is a key without fields. }
    function Read(const Line: string): TmlFileEntry;
    property Delimiter: string read FDelimiter;
    { What an escape begins with. }
    property Mark: Char read FMark;
  end;

function StartsAt(const Text: string; Pos: Integer; const Part: string): Boolean;

implementation

type
  TmlWhere = (weEverywhere, weKeys, weKeyStarts, weEnds);

const
  Letters = 'rnzqcbst';
  Characters: array[1..8] of Char = (#13, #10, #0, '=', ';', '[', ' ', #9);
  Wheres: array[1..8] of TmlWhere = (weEverywhere, weEverywhere, weEverywhere, weKeys, weKeyStarts, weKeyStarts, weEnds,
    weEnds);
  MarkLetter = 'e';
  DelimiterLetter = 'd';
  NoLetter = #0;

function StartsAt(const Text: string; Pos: Integer; const Part: string): Boolean;
begin
  Result := (Pos + Length(Part) - 1 <= Length(Text)) and
    (CompareByte(Text[Pos], Pointer(Part)^, Length(Part)) = 0);
end;

constructor TmlFileFields.Create(const Delimiter: string);
begin
  inherited Create;
  FDelimiter := Delimiter;
  FFirst := DelimiterOf(Delimiter);
  FMark := '\';
  if FFirst = FMark then FMark := '^';
end;

{ The letter for the character at Pos; NoLetter where it is written as it is. }
function TmlFileFields.Escaped(const Text: string; Pos: Integer; IsKey, AtEnd: Boolean): Char;
var
  I: Integer;
  Applies: Boolean;
begin
  Result := NoLetter;
  for I := Low(Characters) to High(Characters) do
    if Characters[I] = Text[Pos] then
    begin
      case Wheres[I] of
        weKeys: Applies := IsKey;
        weKeyStarts: Applies := IsKey and (Pos = 1);
        weEnds: Applies := AtEnd;
      else
        Applies := True;
      end;
      if Applies then Result := Letters[I];
    end;
end;

{ Blanks are escaped where the key or the whole value begins and ends. }
function TmlFileFields.Encoded(const Text: string; IsKey, IsFirst, IsLast: Boolean): string;
var
  Pos: Integer;
  Letter: Char;
begin
  Result := '';
  Pos := 1;
  while Pos <= Length(Text) do
  begin
    Letter := Escaped(Text, Pos, IsKey, (IsFirst and (Pos = 1)) or (IsLast and (Pos = Length(Text))));
    if Text[Pos] = FMark then
      Result := Result + FMark + MarkLetter
    else if not IsKey and StartsAt(Text, Pos, FFirst) then
    begin
      Result := Result + FMark + DelimiterLetter;
      Inc(Pos, Length(FFirst) - 1);
    end
    else if Letter <> NoLetter then
      Result := Result + FMark + Letter
    else
      Result := Result + Text[Pos];
    Inc(Pos);
  end;
end;

function TmlFileFields.Write(const Entry: TmlFileEntry): string;
var
  I: Integer;
begin
  Result := Encoded(Entry.Key, True, True, True) + '=';
  for I := 0 to High(Entry.Fields) do
  begin
    if I > 0 then Result := Result + FDelimiter;
    Result := Result + Encoded(Entry.Fields[I], False, I = 0, I = High(Entry.Fields));
  end;
end;

{ Appends the character or escape at Pos to the text. }
procedure TmlFileFields.ReadCharacter(const Line: string; var Pos: Integer; var Text: string);
var
  Letter: Char;
  Known: Integer;
begin
  Letter := NoLetter;
  if (Line[Pos] = FMark) and (Pos < Length(Line)) then Letter := Line[Pos + 1];
  Known := System.Pos(Letter, Letters);
  Inc(Pos, 2);
  if Letter = MarkLetter then
    Text := Text + FMark
  else if Letter = DelimiterLetter then
    Text := Text + FFirst
  else if Known > 0 then
    Text := Text + Characters[Known]
  else
  begin
    Dec(Pos);
    Text := Text + Line[Pos - 1];
  end;
end;

function TmlFileFields.Read(const Line: string): TmlFileEntry;
var
  Pos, Count, Equals, Behind: Integer;
  Key: string;
begin
  Result.Key := '';
  Result.Fields := nil;
  Equals := 1;
  while (Equals <= Length(Line)) and (Line[Equals] <> '=') do
    Inc(Equals);
  { Blanks around "=" are no text, for those of a text are escaped there. }
  Behind := Equals;
  while (Behind > 1) and (Line[Behind - 1] in [' ', #9]) do
    Dec(Behind);
  Key := Copy(Line, 1, Behind - 1);
  Pos := 1;
  while Pos <= Length(Key) do
    ReadCharacter(Key, Pos, Result.Key);
  if Equals > Length(Line) then Exit;
  Pos := Equals + 1;
  if (FDelimiter = '') or not (FDelimiter[1] in [' ', #9]) then
    while (Pos <= Length(Line)) and (Line[Pos] in [' ', #9]) do
      Inc(Pos);
  Count := 1;
  SetLength(Result.Fields, Count);
  while Pos <= Length(Line) do
    if StartsAt(Line, Pos, FDelimiter) then
    begin
      Inc(Count);
      SetLength(Result.Fields, Count);
      Inc(Pos, Length(FDelimiter));
    end
    else
      ReadCharacter(Line, Pos, Result.Fields[Count - 1]);
end;

end.

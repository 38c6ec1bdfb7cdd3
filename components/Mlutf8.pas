{ Bytes that come from outside, as UTF-8. }
unit Mlutf8;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

function IsValidUtf8(const Bytes: string): Boolean;

{ True when two texts are the same but for letter case, punctuation, blanks and accelerators. }
function DifferInLooksOnly(const Left, Right: string): Boolean;

implementation

uses
  Mltext;

const
  NoCodePoint = -1;

{ The bits of a continuation byte; less than 0 where there is none. }
function Continuation(const Bytes: string; Pos: Integer): Integer;
begin
  Result := NoCodePoint;
  if (Pos <= Length(Bytes)) and (Ord(Bytes[Pos]) and $C0 = $80) then Result := Ord(Bytes[Pos]) and $3F;
end;

{ The code point at Pos, which is moved behind it. Overlong sequences, surrogates and what is beyond Unicode are
  NoCodePoint. }
function NextCodePoint(const Bytes: string; var Pos: Integer): Integer;
const
  Leads: array[1..4] of Byte = ($00, $C0, $E0, $F0);
  Least: array[1..4] of Integer = (0, $80, $800, $10000);
var
  Count, I, Bits: Integer;
begin
  case Ord(Bytes[Pos]) of
    $00..$7F: Count := 1;
    $C2..$DF: Count := 2;
    $E0..$EF: Count := 3;
    $F0..$F4: Count := 4;
  else
    Count := 0;
  end;
  Result := NoCodePoint;
  if Count > 0 then Result := Ord(Bytes[Pos]) - Leads[Count];
  for I := 1 to Count - 1 do
  begin
    Bits := Continuation(Bytes, Pos + I);
    if (Bits < 0) or (Result < 0) then Result := NoCodePoint else Result := Result shl 6 or Bits;
  end;
  if (Result >= 0) and ((Result < Least[Count]) or (Result > $10FFFF) or ((Result >= $D800) and (Result < $E000))) then
    Result := NoCodePoint;
  if Result < 0 then Inc(Pos) else Inc(Pos, Count);
end;

function IsValidUtf8(const Bytes: string): Boolean;
var
  Pos: Integer;
begin
  Pos := 1;
  while Pos <= Length(Bytes) do
    if Bytes[Pos] < #$80 then
      Inc(Pos)
    else if NextCodePoint(Bytes, Pos) < 0 then
    begin
      Result := False;
      Exit;
    end;
  Result := True;
end;

{ Beyond ASCII what is no punctuation, symbol or space of the common blocks counts as a letter. }
function IsLetterOrDigit(CodePoint: Integer): Boolean;
begin
  case CodePoint of
    Ord('0')..Ord('9'), Ord('A')..Ord('Z'), Ord('a')..Ord('z'), $AA, $B5, $BA: Result := True;
    NoCodePoint..$2F, $3A..$40, $5B..$60, $7B..$A9, $AB..$B4, $B6..$B9, $BB..$BF, $D7, $F7, $2000..$2BFF,
    $3000..$303F, $FEFF, $FFFD: Result := False;
  else
    Result := True;
  end;
end;

function BareText(const Text: string): string;
var
  Upper: string;
  Pos, From: Integer;
begin
  Upper := UpperText(Text);
  Result := '';
  Pos := 1;
  while Pos <= Length(Upper) do
  begin
    From := Pos;
    if IsLetterOrDigit(NextCodePoint(Upper, Pos)) then Result := Result + Copy(Upper, From, Pos - From);
  end;
end;

function DifferInLooksOnly(const Left, Right: string): Boolean;
var
  Bare: string;
begin
  Bare := BareText(Left);
  Result := (Bare <> '') and (Bare = BareText(Right));
end;

end.

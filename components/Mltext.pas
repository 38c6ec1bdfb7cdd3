{ Texts compared without regard to case: code point to code point, by a table that the C++ side shares, so that
  both find the same entry whatever the locale. A code point whose counterpart takes another number of bytes stays
  as it is. Texts are UTF-8; on a compiler whose strings are not, this unit is the one to adapt. }
unit Mltext;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}
{$Q-}{$R-} { a hash overflows }

interface

function UpperText(const Text: string): string;
function SameIgnoringCase(const Left, Right: string): Boolean;

{ The text as UTF-16, whatever the code page of the system. }
function UnicodeText(const Text: string): UnicodeString;

{ Equal for texts that are the same. }
function ExactHashOf(const Text: string): Cardinal;
{ Equal for texts that are the same without regard to case. }
function HashOf(const Text: string): Cardinal;

implementation

type
  { Every Step-th code point from First to Last has its capital Delta further. }
  TmlCaseRange = record
    First, Last, Delta, Step: Integer;
  end;

const
  {$I Mlcasetable.inc}

function UpperCodePoint(CodePoint: Integer): Integer;
var
  Low, High, Middle: Integer;
begin
  Result := CodePoint;
  Low := 0;
  High := Length(CaseRanges) - 1;
  while Low <= High do
  begin
    Middle := (Low + High) div 2;
    if CodePoint < CaseRanges[Middle].First then
      High := Middle - 1
    else if CodePoint > CaseRanges[Middle].Last then
      Low := Middle + 1
    else
    begin
      if (CodePoint - CaseRanges[Middle].First) mod CaseRanges[Middle].Step = 0 then
        Inc(Result, CaseRanges[Middle].Delta);
      Exit;
    end;
  end;
end;

{ The number of bytes of the sequence that this byte begins, 1 for a byte that begins none. }
function SequenceLength(Lead: Byte): Integer;
begin
  case Lead of
    $C2..$DF: Result := 2;
    $E0..$EF: Result := 3;
    $F0..$F4: Result := 4;
  else
    Result := 1;
  end;
end;

{ False where the bytes from Start on are no sequence of this length. }
function Decode(const Text: string; Start, Count: Integer; out CodePoint: Integer): Boolean;
const
  LeadBits: array[2..4] of Byte = ($1F, $0F, $07);
var
  I: Integer;
begin
  Result := Start + Count - 1 <= Length(Text);
  if not Result then Exit;
  CodePoint := Ord(Text[Start]) and LeadBits[Count];
  for I := Start + 1 to Start + Count - 1 do
  begin
    if Ord(Text[I]) and $C0 <> $80 then
    begin
      Result := False;
      Exit;
    end;
    CodePoint := (CodePoint shl 6) or (Ord(Text[I]) and $3F);
  end;
end;

procedure Encode(var Text: string; Start, Count, CodePoint: Integer);
const
  LeadMarks: array[2..4] of Byte = ($C0, $E0, $F0);
var
  I: Integer;
begin
  for I := Start + Count - 1 downto Start + 1 do
  begin
    Text[I] := Chr($80 or (CodePoint and $3F));
    CodePoint := CodePoint shr 6;
  end;
  Text[Start] := Chr(LeadMarks[Count] or CodePoint);
end;

function UpperText(const Text: string): string;
var
  I, Count, CodePoint: Integer;
begin
  Result := Text;
  UniqueString(Result);
  I := 1;
  while I <= Length(Result) do
  begin
    Count := SequenceLength(Ord(Result[I]));
    if Count = 1 then
    begin
      if Result[I] in ['a'..'z'] then Result[I] := Chr(Ord(Result[I]) - 32);
    end
    else if Decode(Result, I, Count, CodePoint) then
      Encode(Result, I, Count, UpperCodePoint(CodePoint))
    else
      Count := 1;
    Inc(I, Count);
  end;
end;

function AsciiUpper(C: Char): Char; inline;
begin
  if (C >= 'a') and (C <= 'z') then Result := Chr(Ord(C) - 32) else Result := C;
end;

function SameIgnoringCase(const Left, Right: string): Boolean;
var
  I: Integer;
begin
  Result := Length(Left) = Length(Right);
  if not Result then Exit;
  for I := 1 to Length(Left) do
    if (Left[I] <> Right[I]) and (AsciiUpper(Left[I]) <> AsciiUpper(Right[I])) then
    begin
      Result := ((Ord(Left[I]) or Ord(Right[I])) >= $80) and (UpperText(Left) = UpperText(Right));
      Exit;
    end;
end;

function UnicodeText(const Text: string): UnicodeString;
begin
  {$IFDEF FPC}Result := UTF8Decode(Text);{$ELSE}Result := Text;{$ENDIF}
end;

function ExactHashOf(const Text: string): Cardinal;
var
  I: Integer;
begin
  Result := 2166136261;
  for I := 1 to Length(Text) do
    Result := (Result xor Ord(Text[I])) * 16777619;
end;

function HashOf(const Text: string): Cardinal;
var
  I: Integer;
begin
  Result := 2166136261;
  for I := 1 to Length(Text) do
  begin
    if Ord(Text[I]) >= $80 then
    begin
      Result := ExactHashOf(UpperText(Text));
      Exit;
    end;
    Result := (Result xor Ord(AsciiUpper(Text[I]))) * 16777619;
  end;
end;

end.

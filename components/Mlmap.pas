{ Texts found by a key in constant time. }
unit Mlmap;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mltext;

type
  { Keys, compared without case unless said otherwise, numbered in the order in which they were added. }
  TmlMap = class
  private
    FExact: Boolean;
    FCount: Integer;
    FKeys: array of string;
    FHashes: array of Cardinal;
    FSlots: array of Integer;
    procedure Grow;
    function HashFor(const Key: string): Cardinal;
    function SlotOf(const Key: string; Hash: Cardinal): Integer;
    function Same(Index: Integer; const Key: string; Hash: Cardinal): Boolean;
  public
    constructor Create(Capacity: Integer; Exact: Boolean = False);
    { The number of the key; -1 where it is not there. }
    function Find(const Key: string): Integer;
    { The number of the key, which is added where it is not there. }
    function Add(const Key: string): Integer;
    function KeyAt(Index: Integer): string;
    property Count: Integer read FCount;
  end;

implementation

constructor TmlMap.Create(Capacity: Integer; Exact: Boolean);
var
  Size, I: Integer;
begin
  inherited Create;
  FExact := Exact;
  Size := 16;
  while Size < 2 * Capacity do
    Size := 2 * Size;
  SetLength(FSlots, Size);
  for I := 0 to Size - 1 do
    FSlots[I] := -1;
  SetLength(FKeys, Size div 2);
  SetLength(FHashes, Size div 2);
end;

function TmlMap.HashFor(const Key: string): Cardinal;
begin
  if FExact then Result := ExactHashOf(Key) else Result := HashOf(Key);
end;

function TmlMap.Same(Index: Integer; const Key: string; Hash: Cardinal): Boolean;
begin
  Result := (FHashes[Index] = Hash) and
    ((FKeys[Index] = Key) or (not FExact and SameIgnoringCase(FKeys[Index], Key)));
end;

{ The slot of the key, or the free one where it belongs; at least half of the slots are free. }
function TmlMap.SlotOf(const Key: string; Hash: Cardinal): Integer;
begin
  Result := Integer(Hash and Cardinal(Length(FSlots) - 1));
  while (FSlots[Result] >= 0) and not Same(FSlots[Result], Key, Hash) do
    Result := (Result + 1) and (Length(FSlots) - 1);
end;

function TmlMap.Find(const Key: string): Integer;
begin
  Result := FSlots[SlotOf(Key, HashFor(Key))];
end;

procedure TmlMap.Grow;
var
  I, Size: Integer;
begin
  Size := 2 * Length(FSlots);
  SetLength(FSlots, Size);
  for I := 0 to Size - 1 do
    FSlots[I] := -1;
  SetLength(FKeys, Size div 2);
  SetLength(FHashes, Size div 2);
  for I := 0 to FCount - 1 do
    FSlots[SlotOf(FKeys[I], FHashes[I])] := I;
end;

function TmlMap.Add(const Key: string): Integer;
var
  Hash: Cardinal;
  Slot: Integer;
begin
  Hash := HashFor(Key);
  Slot := SlotOf(Key, Hash);
  Result := FSlots[Slot];
  if Result >= 0 then Exit;
  if FCount = Length(FKeys) then
  begin
    Grow;
    Slot := SlotOf(Key, Hash);
  end;
  Result := FCount;
  FKeys[Result] := Key;
  FHashes[Result] := Hash;
  FSlots[Slot] := Result;
  Inc(FCount);
end;

function TmlMap.KeyAt(Index: Integer): string;
begin
  Result := FKeys[Index];
end;

end.

{ Which of two orders of the same texts puts which text where. }
unit Mlorder;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mllines;

type
  TmlOrder = array of Integer;
  TmlPointers = array of Pointer;

function TextsOf(List: TStrings): TmlLines;
function ObjectsOf(List: TStrings): TmlPointers;

function InOrder(Count: Integer): TmlOrder;
{ Order[Then[i]] for each i. }
function Composed(const Order, Behind: TmlOrder): TmlOrder;

{ The indexes of the texts as a list that sorts has them. }
function SortedOrder(const Texts: TmlLines): TmlOrder;

{ For each of the texts as they stand now the index that it had formerly, equal ones in their order; False where they
  are not the same texts. Objects, if given, have to be the same, too. }
function FindOrder(const NowTexts: TmlLines; const NowObjects: TmlPointers; const FormerTexts: TmlLines;
  const FormerObjects: TmlPointers; out Order: TmlOrder): Boolean;

implementation

uses
  Math, SysUtils;

type
  { Indexes into texts and objects, sorted by these. }
  TmlSorted = class
  private
    FTexts: TmlLines;
    FObjects: TmlPointers;
    FIndexes: TmlOrder;
    FAsShown: Boolean;
    procedure Merge(From, Middle, Behind: Integer);
    procedure Sort(From, Behind: Integer);
    function ObjectAt(Place: Integer): Pointer;
    function TextAt(Place: Integer): string;
  public
    { AsShown: as the run-time library's lists sort, without case. }
    constructor Create(const Texts: TmlLines; const Objects: TmlPointers; AsShown: Boolean);
    function Compare(Place: Integer; Other: TmlSorted; OtherPlace: Integer): Integer;
  end;

function TextsOf(List: TStrings): TmlLines;
var
  I: Integer;
begin
  Result := nil;
  SetLength(Result, List.Count);
  for I := 0 to List.Count - 1 do
    Result[I] := List[I];
end;

function ObjectsOf(List: TStrings): TmlPointers;
var
  I: Integer;
begin
  Result := nil;
  SetLength(Result, List.Count);
  for I := 0 to List.Count - 1 do
    Result[I] := List.Objects[I];
end;

function InOrder(Count: Integer): TmlOrder;
var
  I: Integer;
begin
  Result := nil;
  SetLength(Result, Count);
  for I := 0 to Count - 1 do
    Result[I] := I;
end;

function Composed(const Order, Behind: TmlOrder): TmlOrder;
var
  I: Integer;
begin
  Result := nil;
  SetLength(Result, Length(Behind));
  for I := 0 to High(Behind) do
    Result[I] := Order[Behind[I]];
end;

constructor TmlSorted.Create(const Texts: TmlLines; const Objects: TmlPointers; AsShown: Boolean);
begin
  inherited Create;
  FTexts := Texts;
  FObjects := Objects;
  FAsShown := AsShown;
  FIndexes := InOrder(Length(Texts));
  Sort(0, Length(Texts));
end;

function TmlSorted.TextAt(Place: Integer): string;
begin
  Result := FTexts[FIndexes[Place]];
end;

function TmlSorted.ObjectAt(Place: Integer): Pointer;
begin
  if FObjects = nil then Result := nil else Result := FObjects[FIndexes[Place]];
end;

function TmlSorted.Compare(Place: Integer; Other: TmlSorted; OtherPlace: Integer): Integer;
begin
  if FAsShown then
  begin
    Result := AnsiCompareText(TextAt(Place), Other.TextAt(OtherPlace));
    Exit;
  end;
  Result := CompareStr(TextAt(Place), Other.TextAt(OtherPlace));
  if Result = 0 then
    Result := CompareValue(PtrUInt(ObjectAt(Place)), PtrUInt(Other.ObjectAt(OtherPlace)));
end;

procedure TmlSorted.Merge(From, Middle, Behind: Integer);
var
  Merged: TmlOrder;
  Left, Right, I: Integer;
begin
  SetLength(Merged, Behind - From);
  Left := From;
  Right := Middle;
  for I := 0 to High(Merged) do
    if (Right = Behind) or ((Left < Middle) and (Compare(Left, Self, Right) <= 0)) then
    begin
      Merged[I] := FIndexes[Left];
      Inc(Left);
    end
    else
    begin
      Merged[I] := FIndexes[Right];
      Inc(Right);
    end;
  for I := 0 to High(Merged) do
    FIndexes[From + I] := Merged[I];
end;

{ Equal ones stay in their order. }
procedure TmlSorted.Sort(From, Behind: Integer);
var
  Middle: Integer;
begin
  if Behind - From < 2 then Exit;
  Middle := (From + Behind) div 2;
  Sort(From, Middle);
  Sort(Middle, Behind);
  Merge(From, Middle, Behind);
end;

function Paired(Present, Former: TmlSorted; out Order: TmlOrder): Boolean;
var
  I: Integer;
begin
  Result := Length(Present.FIndexes) = Length(Former.FIndexes);
  SetLength(Order, Length(Present.FIndexes));
  for I := 0 to High(Order) do
  begin
    Result := Result and (Present.Compare(I, Former, I) = 0);
    if not Result then Exit;
    Order[Present.FIndexes[I]] := Former.FIndexes[I];
  end;
end;

function SortedOrder(const Texts: TmlLines): TmlOrder;
var
  Sorted: TmlSorted;
begin
  Sorted := TmlSorted.Create(Texts, nil, True);
  Result := Sorted.FIndexes;
  Sorted.Free;
end;

function FindOrder(const NowTexts: TmlLines; const NowObjects: TmlPointers; const FormerTexts: TmlLines;
  const FormerObjects: TmlPointers; out Order: TmlOrder): Boolean;
var
  Present, Former: TmlSorted;
begin
  Present := TmlSorted.Create(NowTexts, NowObjects, False);
  Former := TmlSorted.Create(FormerTexts, FormerObjects, False);
  try
    Result := Paired(Present, Former, Order);
  finally
    Present.Free;
    Former.Free;
  end;
end;

end.

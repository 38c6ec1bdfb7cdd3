{ Lists of strings. One that stands for the items of a control keeps their number; its items are set one by one. }
unit Mlitemsaccess;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mlaccess, Mlpath;

function NewListAccess(const Place: TmlPlace): TmlAccess;

implementation

uses
  Classes, SysUtils, TypInfo, Mlitemskeeper, Mllines, Mlorder;

type
  TmlListAccess = class(TmlAccess)
    function Read(const Place: TmlPlace): string; override;
    procedure Write(const Place: TmlPlace; const Value: TmlValue); override;
  end;

  { The table's lines are numbered; where the control sorts, an item stands elsewhere in another language. }
  TmlItemsAccess = class(TmlAccess)
  private
    { The line of the item at each index. }
    FLines: TmlOrder;
    function Matches(const Place: TmlPlace; const Lines: TmlLines): Boolean;
    function Former(List: TStrings; const Texts: TmlLines; const Objects: TmlPointers): TmlOrder;
    procedure WriteItems(List: TStrings; const Lines: TmlLines; Keeper: TmlItemsKeeper);
  public
    function Read(const Place: TmlPlace): string; override;
    function Shows(const Place: TmlPlace; const Value: TmlValue): Boolean; override;
    function StillReads(const Place: TmlPlace; const Earlier: string): Boolean; override;
    procedure Write(const Place: TmlPlace; const Value: TmlValue); override;
  end;

function NewListAccess(const Place: TmlPlace): TmlAccess;
begin
  if SameText(Place.Name, 'Items') or SameText(Place.Name, 'Tabs') then
    Result := TmlItemsAccess.Create
  else
    Result := TmlListAccess.Create;
end;

function ListAt(const Place: TmlPlace): TStrings;
begin
  Result := TStrings(GetObjectProp(Place.Instance, Place.Info));
end;

{ TmlListAccess }

function TmlListAccess.Read(const Place: TmlPlace): string;
begin
  Result := JoinLines(ListAt(Place));
end;

procedure TmlListAccess.Write(const Place: TmlPlace; const Value: TmlValue);
var
  List: TStrings;
  Lines: TmlLines;
  I: Integer;
begin
  List := ListAt(Place);
  Lines := SplitLines(Value.Text);
  List.BeginUpdate;
  try
    List.Clear;
    for I := 0 to High(Lines) do
      List.Add(Lines[I]);
  finally
    List.EndUpdate;
  end;
end;

{ TmlItemsAccess }

{ As many lines as the base text has; it stands in for those that are missing. }
function LinesOf(const Value: TmlValue): TmlLines;
var
  Lines: TmlLines;
  I: Integer;
begin
  Lines := SplitLines(Value.Text);
  Result := SplitLines(Value.Base);
  for I := 0 to High(Result) do
    if I <= High(Lines) then Result[I] := Lines[I];
end;

{ Where the items are these lines, notes which item is which line. }
function TmlItemsAccess.Matches(const Place: TmlPlace; const Lines: TmlLines): Boolean;
var
  List: TStrings;
  Order: TmlOrder;
  I: Integer;
begin
  List := ListAt(Place);
  Result := List.Count = Length(Lines);
  if not Result then Exit;
  if Length(FLines) <> List.Count then FLines := InOrder(List.Count);
  for I := 0 to List.Count - 1 do
    Result := Result and (List[I] = Lines[FLines[I]]);
  if Result or not SortsItems(Place.Instance) then Exit;
  Result := FindOrder(TextsOf(List), nil, Lines, nil, Order);
  if Result then FLines := Order;
end;

function TmlItemsAccess.Shows(const Place: TmlPlace; const Value: TmlValue): Boolean;
begin
  Result := Matches(Place, LinesOf(Value));
end;

function TmlItemsAccess.StillReads(const Place: TmlPlace; const Earlier: string): Boolean;
begin
  Result := Matches(Place, SplitLines(Earlier));
end;

{ In the order of the table. }
function TmlItemsAccess.Read(const Place: TmlPlace): string;
var
  List, InTable: TStrings;
  I: Integer;
begin
  List := ListAt(Place);
  if Length(FLines) <> List.Count then FLines := InOrder(List.Count);
  InTable := TStringList.Create;
  try
    for I := 0 to List.Count - 1 do
      InTable.Add('');
    for I := 0 to List.Count - 1 do
      InTable[FLines[I]] := List[I];
    Result := JoinLines(InTable);
  finally
    InTable.Free;
  end;
end;

{ The former index of each item after the control has sorted. }
function TmlItemsAccess.Former(List: TStrings; const Texts: TmlLines; const Objects: TmlPointers): TmlOrder;
begin
  if not FindOrder(TextsOf(List), ObjectsOf(List), Texts, Objects, Result) then Result := InOrder(List.Count);
end;

{ Puts the items into this order: not every control sorts by itself when it is told to. }
procedure Arrange(List: TStrings; const Texts: TmlLines; const Objects: TmlPointers; const Order: TmlOrder);
var
  I: Integer;
begin
  for I := 0 to High(Order) do
  begin
    if List[I] <> Texts[Order[I]] then List[I] := Texts[Order[I]];
    if List.Objects[I] <> Objects[Order[I]] then List.Objects[I] := TObject(Objects[Order[I]]);
  end;
end;

procedure TmlItemsAccess.WriteItems(List: TStrings; const Lines: TmlLines; Keeper: TmlItemsKeeper);
var
  Texts: TmlLines;
  Objects: TmlPointers;
  Order, Formerly, Now: TmlOrder;
  I: Integer;
begin
  SetLength(Texts, List.Count);
  for I := 0 to High(Texts) do
    Texts[I] := Lines[FLines[I]];
  Objects := ObjectsOf(List);
  List.BeginUpdate;
  try
    if Keeper.Sorted then
      Order := SortedOrder(Texts)
    else
      Order := InOrder(List.Count);
    Arrange(List, Texts, Objects, Order);
  finally
    List.EndUpdate;
  end;
  Keeper.Sort;
  Formerly := Former(List, Texts, Objects);
  Keeper.PutBack(Formerly);
  Now := Composed(FLines, Formerly);
  FLines := Now;
end;

procedure TmlItemsAccess.Write(const Place: TmlPlace; const Value: TmlValue);
var
  List: TStrings;
  Keeper: TmlItemsKeeper;
begin
  List := ListAt(Place);
  Keeper := NewItemsKeeper(Place.Instance, List);
  try
    Keeper.Note;
    WriteItems(List, LinesOf(Value), Keeper);
  finally
    Keeper.Free;
  end;
end;

end.

{ List views and trees that sort: where an item stands changes with the language, its key does not. A change takes the
  sorting off; when it is over the control sorts again, as it does. }
unit Mlvieworder;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlpath;

type
  { Items by their places in the tables. }
  TmlViewAccess = class(TmlItemAccess)
  public
    function ItemAt(List: TPersistent; Index: Integer): TPersistent; override;
    procedure EndChange; override;
    { The control that shows the list. }
    function ViewOf(List: TPersistent): TComponent; virtual; abstract;
    function CountOf(List: TPersistent): Integer; virtual; abstract;
    { As the control has them now; nil where there is no such item. }
    function ShownAt(List: TPersistent; Index: Integer): TPersistent; virtual; abstract;
  end;

implementation

uses
  Contnrs, TypInfo, Mlmap;

type
  { The items of a list in the order of the tables. They go unnoticed, so that they are only compared. }
  TmlListOrder = class
  private
    FItems: array of Pointer;
    FPositions: array of Integer;
    FChange: Integer;
    procedure Note(Access: TmlViewAccess; List: TPersistent);
    function FindPositions(Access: TmlViewAccess; List: TPersistent): Boolean;
  public
    function ItemAt(Access: TmlViewAccess; List: TPersistent; Index: Integer): TPersistent;
  end;

  { Belongs to its view and goes with it. }
  TmlViewOrder = class(TComponent)
  private
    FSortType: Integer;
    FKeys: TmlMap;
    FLists: TObjectList;
    procedure Suspend;
    procedure Resume;
  public
    constructor Create(AOwner: TComponent); override;
    destructor Destroy; override;
    function OrderOf(List: TPersistent): TmlListOrder;
  end;

var
  Suspended: TFPList;
  { Counts the changes, so that positions are looked up once in each. }
  Change: Integer = 1;

function PointerKey(Item: Pointer): string;
begin
  SetString(Result, PAnsiChar(@Item), SizeOf(Item));
end;

{ TmlListOrder }

procedure TmlListOrder.Note(Access: TmlViewAccess; List: TPersistent);
var
  I: Integer;
begin
  SetLength(FItems, Access.CountOf(List));
  SetLength(FPositions, Length(FItems));
  for I := 0 to High(FItems) do
  begin
    FItems[I] := Access.ShownAt(List, I);
    FPositions[I] := I;
  end;
end;

{ False where the items are other ones than those noted. }
function TmlListOrder.FindPositions(Access: TmlViewAccess; List: TPersistent): Boolean;
var
  I: Integer;
  Shown: TmlMap;
begin
  Result := Access.CountOf(List) = Length(FItems);
  if not Result then Exit;
  Shown := TmlMap.Create(Length(FItems), True);
  try
    for I := 0 to High(FItems) do
      Shown.Add(PointerKey(Access.ShownAt(List, I)));
    for I := 0 to High(FItems) do
    begin
      FPositions[I] := Shown.Find(PointerKey(FItems[I]));
      Result := Result and (FPositions[I] >= 0);
    end;
  finally
    Shown.Free;
  end;
end;

function TmlListOrder.ItemAt(Access: TmlViewAccess; List: TPersistent; Index: Integer): TPersistent;
begin
  if (FChange <> Change) and not FindPositions(Access, List) then Note(Access, List);
  FChange := Change;
  Result := nil;
  if (Index < 0) or (Index > High(FItems)) then Exit;
  Result := Access.ShownAt(List, FPositions[Index]);
  if Pointer(Result) <> FItems[Index] then Result := nil;
end;

{ TmlViewOrder }

constructor TmlViewOrder.Create(AOwner: TComponent);
begin
  inherited Create(AOwner);
  FKeys := TmlMap.Create(0, True);
  FLists := TObjectList.Create;
end;

destructor TmlViewOrder.Destroy;
begin
  if Suspended <> nil then Suspended.Remove(Self);
  FLists.Free;
  FKeys.Free;
  inherited Destroy;
end;

function TmlViewOrder.OrderOf(List: TPersistent): TmlListOrder;
var
  Index: Integer;
begin
  Index := FKeys.Add(PointerKey(List));
  if Index = FLists.Count then FLists.Add(TmlListOrder.Create);
  Result := TmlListOrder(FLists[Index]);
end;

procedure TmlViewOrder.Suspend;
begin
  if GetOrdProp(Owner, 'SortType') = 0 then Exit;
  FSortType := GetOrdProp(Owner, 'SortType');
  SetOrdProp(Owner, 'SortType', 0);
  Suspended.Add(Self);
end;

procedure TmlViewOrder.Resume;
begin
  if GetOrdProp(Owner, 'SortType') = 0 then SetOrdProp(Owner, 'SortType', FSortType);
end;

{ nil for a view that does not sort. }
function OrderOfView(View: TComponent): TmlViewOrder;
var
  I: Integer;
begin
  Result := nil;
  if (View = nil) or not IsPublishedProp(View, 'SortType') then Exit;
  for I := 0 to View.ComponentCount - 1 do
    if View.Components[I] is TmlViewOrder then Result := TmlViewOrder(View.Components[I]);
  if (Result = nil) and (GetOrdProp(View, 'SortType') <> 0) then Result := TmlViewOrder.Create(View);
end;

{ TmlViewAccess }

function TmlViewAccess.ItemAt(List: TPersistent; Index: Integer): TPersistent;
var
  Order: TmlViewOrder;
begin
  Order := OrderOfView(ViewOf(List));
  if Order = nil then
    Result := ShownAt(List, Index)
  else
  begin
    Order.Suspend;
    Result := Order.OrderOf(List).ItemAt(Self, List, Index);
  end;
end;

{ Sorting calls the program, which may destroy what is still suspended. }
procedure TmlViewAccess.EndChange;
var
  Order: TmlViewOrder;
begin
  Inc(Change);
  while Suspended.Count > 0 do
  begin
    Order := TmlViewOrder(Suspended.Last);
    Suspended.Delete(Suspended.Count - 1);
    Order.Resume;
  end;
end;

initialization
  Suspended := TFPList.Create;

finalization
  Suspended.Free;
  Suspended := nil;

end.

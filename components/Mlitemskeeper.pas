{ What a control knows of its items besides their texts, kept while the texts change: which one is selected, and
  more where a class is registered for the control. }
unit Mlitemskeeper;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes;

type
  TmlItemsKeeper = class
  private
    FOwner: TPersistent;
    FItems: TStrings;
    FSorted: Boolean;
    FSelected: Integer;
    FShowsSelected: Boolean;
    FFlags: array of Integer;
    procedure SetNumber(const Names: array of string; Value: Integer);
    function GetNumber(const Names: array of string; Missing: Integer): Integer;
  protected
    property Owner: TPersistent read FOwner;
    { What else is known of an item, as bits; the base class knows nothing. }
    function FlagsOf(Index: Integer): Integer; virtual;
    procedure SetFlags(Index, Flags: Integer); virtual;
  public
    constructor Create(AOwner: TPersistent; Items: TStrings); virtual;
    { Notes everything, and takes the sorting off so that each item stays where it is. }
    procedure Note;
    { The control sorts again; it may move items. }
    procedure Sort;
    { Puts everything back. Former holds the former index of each item. }
    procedure PutBack(const Former: array of Integer);
    property Sorted: Boolean read FSorted;
  end;
  TmlItemsKeeperClass = class of TmlItemsKeeper;

procedure RegisterItemsKeeper(OwnerClass: TPersistentClass; Keeper: TmlItemsKeeperClass);
function NewItemsKeeper(Owner: TPersistent; Items: TStrings): TmlItemsKeeper;
{ Whether the owner sorts its items. }
function SortsItems(Owner: TPersistent): Boolean;

implementation

uses
  TypInfo;

type
  TmlRegistered = record
    OwnerClass: TPersistentClass;
    Keeper: TmlItemsKeeperClass;
  end;

var
  Registered: array of TmlRegistered;

procedure RegisterItemsKeeper(OwnerClass: TPersistentClass; Keeper: TmlItemsKeeperClass);
begin
  SetLength(Registered, Length(Registered) + 1);
  Registered[High(Registered)].OwnerClass := OwnerClass;
  Registered[High(Registered)].Keeper := Keeper;
end;

function NewItemsKeeper(Owner: TPersistent; Items: TStrings): TmlItemsKeeper;
var
  I: Integer;
begin
  for I := High(Registered) downto 0 do
    if Owner.InheritsFrom(Registered[I].OwnerClass) then
    begin
      Result := Registered[I].Keeper.Create(Owner, Items);
      Exit;
    end;
  Result := TmlItemsKeeper.Create(Owner, Items);
end;

function SortsItems(Owner: TPersistent): Boolean;
begin
  Result := IsPublishedProp(Owner, 'Sorted') and (GetOrdProp(Owner, 'Sorted') <> 0);
end;

constructor TmlItemsKeeper.Create(AOwner: TPersistent; Items: TStrings);
begin
  inherited Create;
  FOwner := AOwner;
  FItems := Items;
end;

function TmlItemsKeeper.FlagsOf(Index: Integer): Integer;
begin
  Result := 0;
end;

procedure TmlItemsKeeper.SetFlags(Index, Flags: Integer);
begin
  { nothing is known of an item here }
end;

function TmlItemsKeeper.GetNumber(const Names: array of string; Missing: Integer): Integer;
var
  I: Integer;
begin
  Result := Missing;
  for I := 0 to High(Names) do
    if IsPublishedProp(FOwner, Names[I]) then
    begin
      Result := GetOrdProp(FOwner, Names[I]);
      Exit;
    end;
end;

procedure TmlItemsKeeper.SetNumber(const Names: array of string; Value: Integer);
var
  I: Integer;
begin
  for I := 0 to High(Names) do
    if IsPublishedProp(FOwner, Names[I]) then
    begin
      if GetOrdProp(FOwner, Names[I]) <> Value then SetOrdProp(FOwner, Names[I], Value);
      Exit;
    end;
end;

procedure TmlItemsKeeper.Note;
var
  I: Integer;
begin
  SetLength(FFlags, FItems.Count);
  for I := 0 to High(FFlags) do
    FFlags[I] := FlagsOf(I);
  FSelected := GetNumber(['ItemIndex', 'TabIndex'], -1);
  FShowsSelected := (FSelected >= 0) and (FSelected < FItems.Count) and IsPublishedProp(FOwner, 'Text') and
    (GetStrProp(FOwner, 'Text') = FItems[FSelected]);
  FSorted := SortsItems(FOwner);
  if FSorted then SetOrdProp(FOwner, 'Sorted', Ord(False));
end;

procedure TmlItemsKeeper.Sort;
begin
  if FSorted then SetOrdProp(FOwner, 'Sorted', Ord(True));
end;

procedure TmlItemsKeeper.PutBack(const Former: array of Integer);
var
  I: Integer;
begin
  for I := 0 to High(Former) do
  begin
    if FlagsOf(I) <> FFlags[Former[I]] then SetFlags(I, FFlags[Former[I]]);
    if Former[I] = FSelected then SetNumber(['ItemIndex', 'TabIndex'], I);
  end;
  I := GetNumber(['ItemIndex'], -1);
  if FShowsSelected and (I >= 0) and (GetStrProp(FOwner, 'Text') <> FItems[I]) then
    SetStrProp(FOwner, 'Text', FItems[I]);
end;

end.

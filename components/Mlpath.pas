{ The way from a component along published objects and items to the place where a text stands. }
unit Mlpath;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, TypInfo, Mlkeys;

type
  { Where a text stands: a published property of Instance; the string at Index of the list Instance; or, Info being
    nil, what an item access knows by the name. }
  TmlPlace = record
    Instance: TPersistent;
    Info: PPropInfo;
    Name: string;
    Index: Integer;
  end;

  { Lists and items whose texts are not published, such as those of list and tree views. }
  TmlItemAccess = class
  public
    { Whether this access knows objects of the class. }
    function Knows(Instance: TPersistent): Boolean; virtual; abstract;
    { nil where there is no such item, and no such list. }
    function ItemAt(List: TPersistent; Index: Integer): TPersistent; virtual; abstract;
    function ListOf(Item: TPersistent; const Name: string): TPersistent; virtual; abstract;
    function ReadText(Item: TPersistent; const Name: string; out Text: string): Boolean; virtual; abstract;
    procedure WriteText(Item: TPersistent; const Name, Text: string); virtual; abstract;
    { All texts are written. }
    procedure EndChange; virtual;
  end;

  TmlPath = class
  private
    FSteps: TmlSteps;
    FClasses: array of TClass;
    FInfos: array of PPropInfo;
    function InfoOf(Step: Integer; Instance: TPersistent): PPropInfo;
    function ObjectAt(Step: Integer; Instance: TPersistent): TPersistent;
    function ItemsOf(Step: Integer; List: TPersistent; Count: Integer): TPersistent;
    function LastStep(Instance: TPersistent; var Place: TmlPlace): Boolean;
    function LastString(Instance: TPersistent; var Place: TmlPlace): Boolean;
  public
    constructor Create(const Steps: TmlSteps; From: Integer);
    { False where the way does not lead on. Nothing is kept of it: items come and go unnoticed. }
    function Walk(Start: TPersistent; out Place: TmlPlace): Boolean;
  end;

{ The access lives as long as the program, which frees it. }
procedure RegisterItemAccess(Access: TmlItemAccess);
{ nil where none knows it. }
function ItemAccessFor(Instance: TPersistent): TmlItemAccess;
{ A change of language has written its texts. }
procedure EndChangeOfItems;

implementation

uses
  Contnrs, SysUtils, Mltext;

var
  Accesses: TObjectList;

procedure RegisterItemAccess(Access: TmlItemAccess);
begin
  Accesses.Add(Access);
end;

function ItemAccessFor(Instance: TPersistent): TmlItemAccess;
var
  I: Integer;
begin
  for I := 0 to Accesses.Count - 1 do
  begin
    Result := TmlItemAccess(Accesses[I]);
    if Result.Knows(Instance) then Exit;
  end;
  Result := nil;
end;

procedure TmlItemAccess.EndChange;
begin
  { nothing was put off }
end;

procedure EndChangeOfItems;
var
  I: Integer;
begin
  for I := 0 to Accesses.Count - 1 do
    TmlItemAccess(Accesses[I]).EndChange;
end;

function NameOfItem(Item: TCollectionItem): string;
begin
  if IsPublishedProp(Item, 'Name') and (PropType(Item, 'Name') in [tkSString, tkLString, tkAString, tkUString]) then
    Result := GetStrProp(Item, 'Name')
  else
    Result := '';
end;

function ItemNamed(Collection: TCollection; const Name: string): TPersistent;
var
  I: Integer;
begin
  for I := 0 to Collection.Count - 1 do
  begin
    Result := Collection.Items[I];
    if SameIgnoringCase(NameOfItem(Collection.Items[I]), Name) then Exit;
  end;
  Result := nil;
end;

function ItemOf(List: TPersistent; const Item: string): TPersistent;
var
  Index: Integer;
  Access: TmlItemAccess;
begin
  Result := nil;
  Index := StrToIntDef(Item, -1);
  if List is TCollection then
  begin
    if Index < 0 then
      Result := ItemNamed(TCollection(List), Item)
    else if Index < TCollection(List).Count then
      Result := TCollection(List).Items[Index];
    Exit;
  end;
  Access := ItemAccessFor(List);
  if (Access <> nil) and (Index >= 0) then Result := Access.ItemAt(List, Index);
end;

constructor TmlPath.Create(const Steps: TmlSteps; From: Integer);
begin
  inherited Create;
  FSteps := Copy(Steps, From, Length(Steps) - From);
  SetLength(FClasses, Length(FSteps));
  SetLength(FInfos, Length(FSteps));
end;

{ Looked up once for each class that is met. }
function TmlPath.InfoOf(Step: Integer; Instance: TPersistent): PPropInfo;
begin
  if FClasses[Step] <> Instance.ClassType then
  begin
    FInfos[Step] := GetPropInfo(Instance, FSteps[Step].Name);
    FClasses[Step] := Instance.ClassType;
  end;
  Result := FInfos[Step];
end;

function TmlPath.ObjectAt(Step: Integer; Instance: TPersistent): TPersistent;
var
  Info: PPropInfo;
  Found: TObject;
  Access: TmlItemAccess;
begin
  Result := nil;
  Info := InfoOf(Step, Instance);
  if Info = nil then
  begin
    Access := ItemAccessFor(Instance);
    if Access <> nil then Result := Access.ListOf(Instance, FSteps[Step].Name);
  end
  else if Info^.PropType^.Kind = tkClass then
  begin
    Found := GetObjectProp(Instance, Info);
    if Found is TPersistent then Result := TPersistent(Found);
  end;
end;

{ The object that the first Count items of a step lead to. }
function TmlPath.ItemsOf(Step: Integer; List: TPersistent; Count: Integer): TPersistent;
var
  I: Integer;
begin
  Result := List;
  for I := 0 to Count - 1 do
    if Result <> nil then Result := ItemOf(Result, FSteps[Step].Items[I]);
end;

function TmlPath.LastString(Instance: TPersistent; var Place: TmlPlace): Boolean;
var
  Last, Item: Integer;
begin
  Last := High(FSteps);
  Item := High(FSteps[Last].Items);
  Place.Instance := ItemsOf(Last, ObjectAt(Last, Instance), Item);
  Place.Index := StrToIntDef(FSteps[Last].Items[Item], -1);
  Result := (Place.Instance is TStrings) and (Place.Index >= 0) and (Place.Index < TStrings(Place.Instance).Count);
end;

function TmlPath.LastStep(Instance: TPersistent; var Place: TmlPlace): Boolean;
var
  Last: Integer;
begin
  Last := High(FSteps);
  if FSteps[Last].Items <> nil then
  begin
    Result := LastString(Instance, Place);
    Exit;
  end;
  Place.Instance := Instance;
  Place.Info := InfoOf(Last, Instance);
  Place.Name := FSteps[Last].Name;
  Result := (Place.Info <> nil) or (ItemAccessFor(Instance) <> nil);
end;

function TmlPath.Walk(Start: TPersistent; out Place: TmlPlace): Boolean;
var
  I: Integer;
begin
  Place.Info := nil;
  Place.Index := -1;
  for I := 0 to High(FSteps) - 1 do
    if Start <> nil then Start := ItemsOf(I, ObjectAt(I, Start), Length(FSteps[I].Items));
  Result := (Start <> nil) and (FSteps <> nil) and LastStep(Start, Place);
end;

initialization
  Accesses := TObjectList.Create;

finalization
  Accesses.Free;

end.

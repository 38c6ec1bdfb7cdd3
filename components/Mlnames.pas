{ Components found by their names in constant time, for as long as none comes or goes. }
unit Mlnames;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Contnrs;

type
  TmlNames = class
  private
    FOwners: TObjectList;
  public
    constructor Create;
    destructor Destroy; override;
    { nil where the owner has no component of the name. }
    function Find(Owner: TComponent; const Name: string): TComponent;
  end;

implementation

uses
  Mlmap;

type
  TmlOwnerNames = class
  private
    FOwner: TComponent;
    FNames: TmlMap;
    FComponents: array of TComponent;
  public
    constructor Create(Owner: TComponent);
    destructor Destroy; override;
  end;

constructor TmlOwnerNames.Create(Owner: TComponent);
var
  I, Count: Integer;
begin
  inherited Create;
  FOwner := Owner;
  FNames := TmlMap.Create(Owner.ComponentCount);
  SetLength(FComponents, Owner.ComponentCount);
  for I := 0 to Owner.ComponentCount - 1 do
  begin
    Count := FNames.Count;
    if (Owner.Components[I].Name <> '') and (FNames.Add(Owner.Components[I].Name) = Count) then
      FComponents[Count] := Owner.Components[I];
  end;
end;

destructor TmlOwnerNames.Destroy;
begin
  FNames.Free;
  inherited Destroy;
end;

constructor TmlNames.Create;
begin
  inherited Create;
  FOwners := TObjectList.Create;
end;

destructor TmlNames.Destroy;
begin
  FOwners.Free;
  inherited Destroy;
end;

{ One owner's entries follow each other, so that the last one looked at is tried first. }
function TmlNames.Find(Owner: TComponent; const Name: string): TComponent;
var
  I, Index: Integer;
  Names: TmlOwnerNames;
begin
  if Owner.ComponentCount < 8 then
  begin
    Result := Owner.FindComponent(Name);
    Exit;
  end;
  Names := nil;
  for I := FOwners.Count - 1 downto 0 do
    if TmlOwnerNames(FOwners[I]).FOwner = Owner then Names := TmlOwnerNames(FOwners[I]);
  if Names = nil then
  begin
    Names := TmlOwnerNames.Create(Owner);
    FOwners.Add(Names);
  end;
  Index := Names.FNames.Find(Name);
  if Index < 0 then Result := nil else Result := Names.FComponents[Index];
end;

end.

{ Nothing is set while something loads: a component that is read later, or a descendant form, would set its
  properties over it. What was loaded together is applied together, once the outermost loading has ended. }
unit Mlloading;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mllanguages;

{ Frames of this class tell the end of their loading; forms and data modules do so anyway. }
procedure WatchLoading(RootClass: TComponentClass);

{ From Loaded and from the destructor. }
procedure AwaitEndOfLoading(Component: TmlLanguages);
procedure ForgetLoading(Component: TmlLanguages);

{ Applies what has been loaded. Only a program that reads a form with a reader of its own has to call this, before it
  shows the form; a visual library calls it soon. }
procedure ApplyLoaded;

var
  { Set by the unit of the visual library: has ApplyLoaded called soon. }
  ApplyLoadedSoon: procedure = nil;

implementation

uses
  SysUtils, Mlchange;

threadvar
  Pending: TFPList;
  Depth: Integer;
  Initialised: TComponent;

procedure AwaitEndOfLoading(Component: TmlLanguages);
begin
  if Pending = nil then Pending := TFPList.Create;
  if Pending.IndexOf(Component) < 0 then Pending.Add(Component);
  if (Depth = 0) and Assigned(ApplyLoadedSoon) then ApplyLoadedSoon;
end;

procedure ForgetLoading(Component: TmlLanguages);
begin
  if Pending <> nil then Pending.Remove(Component);
end;

function IsLoading(Component: TComponent): Boolean;
begin
  while Component <> nil do
  begin
    Result := [csLoading, csReading] * Component.ComponentState <> [];
    if Result then Exit;
    Component := Component.Owner;
  end;
  Result := False;
end;

{ Takes those from the list that are loaded, owners included. }
function TakeLoaded: TmlComponents;
var
  I: Integer;
begin
  Result := nil;
  for I := 0 to Pending.Count - 1 do
    if not IsLoading(TComponent(Pending[I])) then
    begin
      SetLength(Result, Length(Result) + 1);
      Result[High(Result)] := TmlLanguages(Pending[I]);
      Pending[I] := nil;
    end;
  Pending.Pack;
  if Pending.Count > 0 then Exit;
  Pending.Free;
  Pending := nil;
end;

procedure ApplyLoaded;
var
  I: Integer;
  Loaded: TmlComponents;
begin
  if (Depth > 0) or (Pending = nil) then Exit;
  Loaded := TakeLoaded;
  for I := 0 to High(Loaded) do
    Loaded[I].EndLoading;
  ApplyLanguages(Loaded);
end;

type
  { Forms hold the name space while they are made, from before their resources are read until before OnCreate. }
  TmlNameSpace = class(TInterfacedObject, IReadWriteSync)
  private
    FInner: IReadWriteSync;
  public
    constructor Create;
    procedure BeginRead;
    procedure EndRead;
    function BeginWrite: Boolean;
    procedure EndWrite;
  end;

constructor TmlNameSpace.Create;
begin
  inherited Create;
  FInner := GlobalNameSpace;
end;

procedure TmlNameSpace.BeginRead;
begin
  FInner.BeginRead;
end;

procedure TmlNameSpace.EndRead;
begin
  FInner.EndRead;
end;

function TmlNameSpace.BeginWrite: Boolean;
begin
  Result := FInner.BeginWrite;
  Inc(Depth);
end;

procedure TmlNameSpace.EndWrite;
begin
  Dec(Depth);
  FInner.EndWrite;
  ApplyLoaded;
end;

{$IFDEF FPC}
{ Called before the handler that reads the resource; calls that one itself, so as to see its end. }
function InitComponent(Instance: TComponent; RootAncestor: TClass): Boolean;
var
  Outer: TComponent;
begin
  Result := False;
  if Initialised = Instance then Exit;
  Outer := Initialised;
  Initialised := Instance;
  Inc(Depth);
  try
    Result := InitInheritedComponent(Instance, RootAncestor);
  finally
    Dec(Depth);
    Initialised := Outer;
  end;
  ApplyLoaded;
end;

procedure WatchLoading(RootClass: TComponentClass);
begin
  RegisterInitComponentHandler(RootClass, InitComponent);
end;
{$ELSE}
procedure WatchLoading(RootClass: TComponentClass);
begin
  { everything that loads holds the name space }
end;
{$ENDIF}

var
  Inner: IReadWriteSync;

initialization
  Inner := GlobalNameSpace;
  GlobalNameSpace := TmlNameSpace.Create;
  WatchLoading(TDataModule);

finalization
  GlobalNameSpace := Inner;

end.

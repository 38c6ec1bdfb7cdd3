{ Which access a property wants. }
unit Mlaccesses;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mlaccess, Mlpath;

{ The access for what stands at the place; nil where it can be no text of a table. }
function NewAccess(const Place: TmlPlace): TmlAccess;

implementation

uses
  Classes, TypInfo, Mlfontaccess, Mlitemsaccess, Mltextaccess;

function NewObjectAccess(const Place: TmlPlace): TmlAccess;
var
  Shown: TObject;
begin
  Shown := GetObjectProp(Place.Instance, Place.Info);
  if Shown is TStrings then
    Result := NewListAccess(Place)
  else if IsFont(Shown) then
    Result := TmlFontAccess.Create
  else
    Result := nil;
end;

function NewPropertyAccess(const Place: TmlPlace): TmlAccess;
begin
  if Place.Info^.PropType^.Kind = tkClass then
    Result := NewObjectAccess(Place)
  else if Place.Info^.SetProc = nil then
    Result := nil
  else if Place.Info^.PropType^.Kind in TextKinds then
    Result := TmlTextAccess.Create
  else if Place.Info^.PropType^.Kind = tkInteger then
    Result := TmlNumberAccess.Create
  else
    Result := nil;
end;

function NewAccess(const Place: TmlPlace): TmlAccess;
begin
  if Place.Info <> nil then
    Result := NewPropertyAccess(Place)
  else if Place.Index >= 0 then
    Result := TmlStringAccess.Create
  else
    Result := TmlItemTextAccess.Create;
end;

end.

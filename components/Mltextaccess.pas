{ Texts and numbers as properties, strings of a list, and texts that are not published. }
unit Mltextaccess;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  TypInfo, Mlaccess, Mlpath;

const
  TextKinds = [tkSString, tkLString, tkAString, tkWString, tkUString];

type
  TmlTextAccess = class(TmlAccess)
    function Read(const Place: TmlPlace): string; override;
    procedure Write(const Place: TmlPlace; const Value: TmlValue); override;
  end;

  { A text that is not published. }
  TmlItemTextAccess = class(TmlAccess)
    function Read(const Place: TmlPlace): string; override;
    procedure Write(const Place: TmlPlace; const Value: TmlValue); override;
  end;

  TmlStringAccess = class(TmlAccess)
    function Read(const Place: TmlPlace): string; override;
    procedure Write(const Place: TmlPlace; const Value: TmlValue); override;
  end;

  { A number that may have a name, such as a character set. }
  TmlNumberAccess = class(TmlAccess)
  private
    function Number(const Place: TmlPlace; const Text: string): Integer;
  public
    function Read(const Place: TmlPlace): string; override;
    function Shows(const Place: TmlPlace; const Value: TmlValue): Boolean; override;
    procedure Write(const Place: TmlPlace; const Value: TmlValue); override;
  end;

implementation

uses
  Classes, SysUtils;

{ TmlTextAccess }

function TmlTextAccess.Read(const Place: TmlPlace): string;
begin
  Result := GetStrProp(Place.Instance, Place.Info);
end;

procedure TmlTextAccess.Write(const Place: TmlPlace; const Value: TmlValue);
begin
  SetStrProp(Place.Instance, Place.Info, Value.Text);
end;

{ TmlItemTextAccess }

function TmlItemTextAccess.Read(const Place: TmlPlace): string;
begin
  if not ItemAccessFor(Place.Instance).ReadText(Place.Instance, Place.Name, Result) then
    raise EPropertyError.CreateFmt('%s has no text %s', [Place.Instance.ClassName, Place.Name]);
end;

procedure TmlItemTextAccess.Write(const Place: TmlPlace; const Value: TmlValue);
begin
  ItemAccessFor(Place.Instance).WriteText(Place.Instance, Place.Name, Value.Text);
end;

{ TmlStringAccess }

function TmlStringAccess.Read(const Place: TmlPlace): string;
begin
  Result := TStrings(Place.Instance)[Place.Index];
end;

procedure TmlStringAccess.Write(const Place: TmlPlace; const Value: TmlValue);
begin
  TStrings(Place.Instance)[Place.Index] := Value.Text;
end;

{ TmlNumberAccess }

{ Raises EConvertError for a text that is no number and no name of one. }
function TmlNumberAccess.Number(const Place: TmlPlace; const Text: string): Integer;
var
  ToNumber: TIdentToInt;
begin
  ToNumber := FindIdentToInt(Place.Info^.PropType);
  if not (Assigned(ToNumber) and ToNumber(Text, Result)) then Result := StrToInt(Text);
end;

function TmlNumberAccess.Read(const Place: TmlPlace): string;
begin
  Result := IntToStr(GetOrdProp(Place.Instance, Place.Info));
end;

function TmlNumberAccess.Shows(const Place: TmlPlace; const Value: TmlValue): Boolean;
begin
  Result := GetOrdProp(Place.Instance, Place.Info) = Number(Place, Value.Text);
end;

procedure TmlNumberAccess.Write(const Place: TmlPlace; const Value: TmlValue);
begin
  SetOrdProp(Place.Instance, Place.Info, Number(Place, Value.Text));
end;

end.

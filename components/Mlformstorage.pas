{ Keeps a form's place and chosen properties from one run of the program to the next. }
unit Mlformstorage;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Forms, IniFiles;

type
  TmlFormStorage = class(TComponent)
  private
    FActive, FStorePlace, FRestored: Boolean;
    FFileName: string;
    FStoredProperties: TStringList;
    function GetStoredProperties: TStrings;
    procedure SetStoredProperties(Value: TStrings);
    procedure FormShown(Sender: TObject);
    procedure FormGoes(Sender: TObject);
    function UsedFile: string;
    function Section: string;
    procedure SavePlace(Form: TCustomForm; Ini: TCustomIniFile);
    procedure RestorePlace(Form: TCustomForm; Ini: TCustomIniFile);
    function FindProperty(const Path: string; out Instance: TPersistent; out Name: string): Boolean;
    procedure SaveProperty(const Path: string; Ini: TCustomIniFile);
    procedure RestoreProperty(const Path: string; Ini: TCustomIniFile);
  protected
    procedure Loaded; override;
  public
    constructor Create(AOwner: TComponent); override;
    destructor Destroy; override;
    { A form does both by itself, before it is shown first and before it goes. EStreamError where the file cannot be
      written. }
    procedure Save;
    procedure Restore;
  published
    property Active: Boolean read FActive write FActive default True;
    { '' for a file of the program in the user's configuration. }
    property FileName: string read FFileName write FFileName;
    { Whether place, size and state of the form's window are kept. }
    property StorePlace: Boolean read FStorePlace write FStorePlace default True;
    { Component.Property, or .Property of the form itself, one a line; texts, numbers, enumerations and sets. }
    property StoredProperties: TStrings read GetStoredProperties write SetStoredProperties;
  end;

implementation

uses
  Controls, SysUtils, TypInfo, Variants, Mlcodec, Mllangfiles;

constructor TmlFormStorage.Create(AOwner: TComponent);
begin
  inherited Create(AOwner);
  FActive := True;
  FStorePlace := True;
  FStoredProperties := TStringList.Create;
  if not (AOwner is TCustomForm) or (csDesigning in ComponentState) then Exit;
  TCustomForm(AOwner).AddHandlerFirstShow(FormShown, True);
  TCustomForm(AOwner).AddHandlerOnBeforeDestruction(FormGoes);
end;

destructor TmlFormStorage.Destroy;
begin
  if (Owner is TCustomForm) and not (csDestroying in Owner.ComponentState) then
    TCustomForm(Owner).RemoveAllHandlersOfObject(Self);
  FStoredProperties.Free;
  inherited Destroy;
end;

function TmlFormStorage.GetStoredProperties: TStrings;
begin
  Result := FStoredProperties;
end;

procedure TmlFormStorage.SetStoredProperties(Value: TStrings);
begin
  FStoredProperties.Assign(Value);
end;

{ Others than forms are never shown. }
procedure TmlFormStorage.Loaded;
begin
  inherited Loaded;
  if FActive and not (Owner is TCustomForm) and not (csDesigning in ComponentState) then Restore;
end;

procedure TmlFormStorage.FormShown(Sender: TObject);
begin
  if FActive then Restore;
  FRestored := True;
end;

{ One that was never shown has nothing new to keep. A form goes, whatever becomes of its file. }
procedure TmlFormStorage.FormGoes(Sender: TObject);
begin
  if not (FActive and FRestored) then Exit;
  try
    Save;
  except
    on EStreamError do Exit;
    on EInOutError do Exit;
  end;
end;

function TmlFormStorage.UsedFile: string;
begin
  Result := FFileName;
  if Result = '' then Result := GetAppConfigDir(False) + 'forms.ini';
end;

function TmlFormStorage.Section: string;
begin
  Result := FormNameOf(Owner.ClassType);
end;

procedure TmlFormStorage.Save;
var
  Ini: TMemIniFile;
  I: Integer;
begin
  if Owner = nil then Exit;
  if not ForceDirectories(ExtractFileDir(ExpandFileName(UsedFile))) then
    raise EInOutError.CreateFmt('The folder of %s cannot be made', [UsedFile]);
  Ini := TMemIniFile.Create(UsedFile);
  try
    if FStorePlace and (Owner is TCustomForm) then SavePlace(TCustomForm(Owner), Ini);
    for I := 0 to FStoredProperties.Count - 1 do
      SaveProperty(FStoredProperties[I], Ini);
    Ini.UpdateFile;
  finally
    Ini.Free;
  end;
end;

procedure TmlFormStorage.Restore;
var
  Ini: TMemIniFile;
  I: Integer;
begin
  if (Owner = nil) or not FileExists(UsedFile) then Exit;
  Ini := TMemIniFile.Create(UsedFile);
  try
    if FStorePlace and (Owner is TCustomForm) then RestorePlace(TCustomForm(Owner), Ini);
    for I := 0 to FStoredProperties.Count - 1 do
      RestoreProperty(FStoredProperties[I], Ini);
  finally
    Ini.Free;
  end;
end;

{ Of a maximized window the place that it returns to. }
procedure TmlFormStorage.SavePlace(Form: TCustomForm; Ini: TCustomIniFile);
var
  Place: TRect;
begin
  Place := Form.BoundsRect;
  if Form.WindowState <> wsNormal then
    Place := Bounds(Form.RestoredLeft, Form.RestoredTop, Form.RestoredWidth, Form.RestoredHeight);
  Ini.WriteBool(Section, 'Maximized', Form.WindowState = wsMaximized);
  Ini.WriteInteger(Section, 'Left', Place.Left);
  Ini.WriteInteger(Section, 'Top', Place.Top);
  Ini.WriteInteger(Section, 'Width', Place.Right - Place.Left);
  Ini.WriteInteger(Section, 'Height', Place.Bottom - Place.Top);
end;

{ A window whose screen is gone stays where it is. }
procedure TmlFormStorage.RestorePlace(Form: TCustomForm; Ini: TCustomIniFile);
var
  Place: TRect;
begin
  Place.Left := Ini.ReadInteger(Section, 'Left', Form.Left);
  Place.Top := Ini.ReadInteger(Section, 'Top', Form.Top);
  Place.Right := Place.Left + Ini.ReadInteger(Section, 'Width', Form.Width);
  Place.Bottom := Place.Top + Ini.ReadInteger(Section, 'Height', Form.Height);
  if (Place.Left < Screen.DesktopLeft + Screen.DesktopWidth) and (Place.Top < Screen.DesktopTop + Screen.DesktopHeight) and
    (Place.Right > Screen.DesktopLeft) and (Place.Bottom > Screen.DesktopTop) and Ini.ValueExists(Section, 'Left') then
  begin
    TForm(Form).Position := poDesigned;
    Form.SetRestoredBounds(Place.Left, Place.Top, Place.Right - Place.Left, Place.Bottom - Place.Top);
  end;
  if Ini.ReadBool(Section, 'Maximized', False) then Form.WindowState := wsMaximized;
end;

function TmlFormStorage.FindProperty(const Path: string; out Instance: TPersistent; out Name: string): Boolean;
var
  Dot: Integer;
begin
  Name := Path;
  Instance := Owner;
  Dot := Pos('.', Name);
  while (Dot > 0) and (Instance <> nil) do
  begin
    if Dot > 1 then Instance := TComponent(Instance).FindComponent(Copy(Name, 1, Dot - 1));
    Delete(Name, 1, Dot);
    Dot := Pos('.', Name);
  end;
  Result := (Instance <> nil) and IsPublishedProp(Instance, Name) and
    (PropType(Instance, Name) in [tkInteger, tkEnumeration, tkSet, tkFloat, tkInt64, tkBool, tkAString, tkSString,
      tkLString, tkWString, tkUString]);
end;

{ Between marks, because blanks and control characters at the ends of a value are not kept. }
procedure TmlFormStorage.SaveProperty(const Path: string; Ini: TCustomIniFile);
var
  Instance: TPersistent;
  Name: string;
begin
  if FindProperty(Path, Instance, Name) then
    Ini.WriteString(Section, Path, JoinFields(['<', VarToStr(GetPropValue(Instance, Name, True)), '>'], #1));
end;

{ A value without marks is of an earlier version. }
procedure TmlFormStorage.RestoreProperty(const Path: string; Ini: TCustomIniFile);
var
  Instance: TPersistent;
  Name, Stored, Value: string;
begin
  if not Ini.ValueExists(Section, Path) or not FindProperty(Path, Instance, Name) then Exit;
  Stored := Ini.ReadString(Section, Path, '');
  if not FieldAt(Stored, #1, 1, Value) then FieldAt(Stored, #1, 0, Value);
  try
    SetPropValue(Instance, Name, Value);
  except
    { what somebody else has written there }
    on EConvertError do Exit;
    on EPropertyError do Exit;
    on EVariantError do Exit;
    on ERangeError do Exit;
  end;
end;

initialization
  RegisterClass(TmlFormStorage);

end.

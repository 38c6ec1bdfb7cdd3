{ A list from which the user chooses the language. }
unit Mllangcombo;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Graphics, ImgList, LCLType, StdCtrls, Types, Mllanguages;

type
  { How a language is shown. }
  TLanguageInfo = class(TCollectionItem)
  private
    FLanguage, FDisplayName: string;
    FFont: TFont;
    FParentFont: Boolean;
    FImageIndex: Integer;
    procedure SetLanguage(const Value: string);
    procedure SetDisplayText(const Value: string);
    procedure SetFont(Value: TFont);
    procedure SetImageIndex(Value: Integer);
    procedure FontChanged(Sender: TObject);
    function HasFont: Boolean;
  protected
    function GetDisplayName: string; override;
  public
    constructor Create(ACollection: TCollection); override;
    destructor Destroy; override;
    procedure Assign(Source: TPersistent); override;
  published
    { Its name in the component or dispatcher. }
    property Language: string read FLanguage write SetLanguage;
    { What the list shows; '' for the name. }
    property DisplayText: string read FDisplayName write SetDisplayText;
    { Its own font, character set included; the combo's until it is changed. }
    property Font: TFont read FFont write SetFont stored HasFont;
    { A picture among the combo's Images, -1 for none. }
    property ImageIndex: Integer read FImageIndex write SetImageIndex default -1;
  end;

  TLanguageInfos = class(TOwnedCollection)
  protected
    procedure Update(Item: TCollectionItem); override;
  public
    constructor Create(AOwner: TPersistent);
    { nil for a language that has none. }
    function Find(const Language: string): TLanguageInfo;
  end;

  TmlLangCombo = class(TComboBox)
  private
    FLanguages: TmlLanguages;
    FInfos: TLanguageInfos;
    FImages: TCustomImageList;
    { The language of each item. }
    FNames: TStringList;
    procedure SetLanguages(Value: TmlLanguages);
    procedure SetInfos(Value: TLanguageInfos);
    procedure SetImages(Value: TCustomImageList);
    function HasInfos: Boolean;
    procedure LanguageChanged(Sender: TObject);
    procedure FillNames;
    function Active: string;
    function ShownName(const Language: string): string;
  protected
    procedure DrawItem(Index: Integer; ARect: TRect; State: TOwnerDrawState); override;
    procedure DropDown; override;
    procedure Loaded; override;
    procedure Notification(AComponent: TComponent; Operation: TOperation); override;
    procedure Select; override;
  public
    constructor Create(AOwner: TComponent); override;
    destructor Destroy; override;
    { Lists the languages as they are now. }
    procedure Refresh;
  published
    property Items stored False;
    property ItemIndex stored False;
    property Style default csOwnerDrawFixed;
    property Text stored False;
    property Images: TCustomImageList read FImages write SetImages;
    property LanguageInfos: TLanguageInfos read FInfos write SetInfos stored HasInfos;
    { Whose languages are listed and change: a component's or a dispatcher's; where there is none those of the infos, for
      the whole program. }
    property Languages: TmlLanguages read FLanguages write SetLanguages;
  end;

implementation

uses
  Mlproglang, Mltext, Mlwatching;

constructor TLanguageInfo.Create(ACollection: TCollection);
begin
  FFont := TFont.Create;
  FFont.OnChange := FontChanged;
  FParentFont := True;
  FImageIndex := -1;
  inherited Create(ACollection);
end;

destructor TLanguageInfo.Destroy;
begin
  inherited Destroy;
  FFont.Free;
end;

procedure TLanguageInfo.Assign(Source: TPersistent);
var
  Other: TLanguageInfo;
begin
  if not (Source is TLanguageInfo) then
  begin
    inherited Assign(Source);
    Exit;
  end;
  Other := TLanguageInfo(Source);
  FLanguage := Other.FLanguage;
  FDisplayName := Other.FDisplayName;
  FImageIndex := Other.FImageIndex;
  FFont.Assign(Other.FFont);
  FParentFont := Other.FParentFont;
  Changed(False);
end;

procedure TLanguageInfo.FontChanged(Sender: TObject);
begin
  FParentFont := False;
  Changed(False);
end;

procedure TLanguageInfo.SetFont(Value: TFont);
begin
  FFont.Assign(Value);
end;

function TLanguageInfo.HasFont: Boolean;
begin
  Result := not FParentFont;
end;

procedure TLanguageInfo.SetLanguage(const Value: string);
begin
  FLanguage := Value;
  Changed(False);
end;

procedure TLanguageInfo.SetDisplayText(const Value: string);
begin
  FDisplayName := Value;
  Changed(False);
end;

procedure TLanguageInfo.SetImageIndex(Value: Integer);
begin
  FImageIndex := Value;
  Changed(False);
end;

function TLanguageInfo.GetDisplayName: string;
begin
  Result := FDisplayName;
  if Result = '' then Result := FLanguage;
end;

constructor TLanguageInfos.Create(AOwner: TPersistent);
begin
  inherited Create(AOwner, TLanguageInfo);
end;

procedure TLanguageInfos.Update(Item: TCollectionItem);
begin
  inherited Update(Item);
  TmlLangCombo(Owner).Refresh;
end;

function TLanguageInfos.Find(const Language: string): TLanguageInfo;
var
  I: Integer;
begin
  for I := 0 to Count - 1 do
  begin
    Result := TLanguageInfo(Items[I]);
    if SameIgnoringCase(Result.Language, Language) then Exit;
  end;
  Result := nil;
end;

constructor TmlLangCombo.Create(AOwner: TComponent);
begin
  inherited Create(AOwner);
  FNames := TStringList.Create;
  FInfos := TLanguageInfos.Create(Self);
  Style := csOwnerDrawFixed;
end;

destructor TmlLangCombo.Destroy;
begin
  if FLanguages <> nil then FLanguages.RemoveWatcher(LanguageChanged);
  FLanguages := nil;
  inherited Destroy;
  FInfos.Free;
  FNames.Free;
end;

procedure TmlLangCombo.Loaded;
begin
  inherited Loaded;
  Refresh;
end;

procedure TmlLangCombo.Notification(AComponent: TComponent; Operation: TOperation);
begin
  inherited Notification(AComponent, Operation);
  if Operation <> opRemove then Exit;
  if AComponent = FImages then FImages := nil;
  if AComponent <> FLanguages then Exit;
  FLanguages := nil;
  Refresh;
end;

procedure TmlLangCombo.SetLanguages(Value: TmlLanguages);
begin
  Follow(FLanguages, Value, Self, LanguageChanged);
end;

procedure TmlLangCombo.SetInfos(Value: TLanguageInfos);
begin
  FInfos.Assign(Value);
end;

procedure TmlLangCombo.SetImages(Value: TCustomImageList);
begin
  if FImages <> nil then FImages.RemoveFreeNotification(Self);
  FImages := Value;
  if Value <> nil then Value.FreeNotification(Self);
  Invalidate;
end;

function TmlLangCombo.HasInfos: Boolean;
begin
  Result := FInfos.Count > 0;
end;

procedure TmlLangCombo.LanguageChanged(Sender: TObject);
begin
  Refresh;
end;

procedure TmlLangCombo.FillNames;
var
  I: Integer;
begin
  FNames.Clear;
  if FLanguages <> nil then
    for I := 1 to FLanguages.LanguageCount do
      FNames.Add(FLanguages.LanguageName(I))
  else
    for I := 0 to FInfos.Count - 1 do
      FNames.Add(TLanguageInfo(FInfos.Items[I]).Language);
end;

function TmlLangCombo.Active: string;
begin
  if FLanguages <> nil then Result := FLanguages.LanguageName(FLanguages.ActivePlace) else Result := ProgramLanguage;
end;

function TmlLangCombo.ShownName(const Language: string): string;
var
  Info: TLanguageInfo;
begin
  Info := FInfos.Find(Language);
  if Info = nil then Result := Language else Result := Info.DisplayName;
end;

procedure TmlLangCombo.Refresh;
var
  I: Integer;
  Shown: TStringList;
begin
  if [csLoading, csDestroying] * ComponentState <> [] then Exit;
  FillNames;
  Shown := TStringList.Create;
  try
    for I := 0 to FNames.Count - 1 do
      Shown.Add(ShownName(FNames[I]));
    if not Shown.Equals(Items) then Items.Assign(Shown);
  finally
    Shown.Free;
  end;
  ItemIndex := FNames.IndexOf(Active);
end;

procedure TmlLangCombo.DropDown;
begin
  Refresh;
  inherited DropDown;
end;

procedure TmlLangCombo.Select;
begin
  if (ItemIndex >= 0) and (ItemIndex < FNames.Count) and not (csDesigning in ComponentState) then
    if FLanguages <> nil then
      FLanguages.Language := FNames[ItemIndex]
    else
      SetProgramLanguage(FNames[ItemIndex]);
  inherited Select;
end;

procedure TmlLangCombo.DrawItem(Index: Integer; ARect: TRect; State: TOwnerDrawState);
var
  Info: TLanguageInfo;
  Left: Integer;
begin
  if Assigned(OnDrawItem) or (Index < 0) or (Index >= FNames.Count) then
  begin
    inherited DrawItem(Index, ARect, State);
    Exit;
  end;
  Info := FInfos.Find(FNames[Index]);
  Canvas.FillRect(ARect);
  Left := ARect.Left + 2;
  if (Info <> nil) and (FImages <> nil) and (Info.ImageIndex >= 0) then
  begin
    FImages.Draw(Canvas, Left, (ARect.Top + ARect.Bottom - FImages.Height) div 2, Info.ImageIndex);
    Inc(Left, FImages.Width + 4);
  end;
  if (Info <> nil) and Info.HasFont then
  begin
    Canvas.Font.Name := Info.Font.Name;
    Canvas.Font.CharSet := Info.Font.CharSet;
  end;
  Canvas.TextOut(Left, (ARect.Top + ARect.Bottom - Canvas.TextHeight('Hg')) div 2, Items[Index]);
end;

initialization
  RegisterClass(TmlLangCombo);

end.

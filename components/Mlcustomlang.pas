{ The localization component of a form, frame or data module: its tables, the texts of the active language by their
  IDs, and the properties that follow the language. }
unit Mlcustomlang;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, SyncObjs, Mlapplier, Mlchange, Mlextended, Mllangdispatcher, Mllanguages, Mltables, Mltexts;

type
  TmlMissingKind = Mllanguages.TmlMissingKind;
  TmlMissingEvent = Mllanguages.TmlMissingEvent;
  { A property shows something else than was set last; Text is what it would have been set to. }
  TmlKeptEvent = procedure(Sender: TObject; const Key, Text: string) of object;

  TmlCustomLang = class(TmlLanguages)
  private
    FDelimiter: string;
    FDispatcher: TmlLangDispatcher;
    FIgnoreRemovals, FMirrorLayout: Boolean;
    FTables: TmlTables;
    FStates, FDoNotTranslate, FExcludedProperties, FSmartExcludeProps: TStringList;
    FExtended: TmlExtendedTranslations;
    FApplier: TmlApplier;
    FKeptApplier: ImlApplier;
    FLock: TCriticalSection;
    FTexts: TmlTexts;
    FTextsStale, FStreamed, FLoadingEnded: Boolean;
    FTextsChangedBy: TThreadID;
    FOnMissing: TmlMissingEvent;
    FOnKept: TmlKeptEvent;
    function GetTable(Index: Integer): TStrings;
    procedure SetTable(Index: Integer; Value: TStrings);
    function GetList(Index: Integer): TStrings;
    procedure SetList(Index: Integer; Value: TStrings);
    procedure SetDelimiter(const Value: string);
    procedure SetDispatcher(Value: TmlLangDispatcher);
    procedure SetExtended(Value: TmlExtendedTranslations);
    function HasExtended: Boolean;
    procedure TableChanged(Sender: TObject);
    procedure ExtendedChanged(Sender: TObject);
    procedure TextsChanged;
    procedure ReportMissing(Kind: TmlMissingKind; const Name: string);
    procedure ReportKept(const Key, Text: string);
    function ListAt(Index: Integer): TStringList;
    function IsFirstOfOwner: Boolean;
    procedure TakeAlong(Within: TComponent; const Language: string; Appliers: TInterfaceList);
    procedure MakeTexts;
    function TextOr(const ID, Default: string): string;
  protected
    function Decisive: TmlLanguages; override;
    procedure ChangeTo(Place: Integer); override;
    procedure LanguageMissing(const Name: string); override;
    procedure Loaded; override;
    procedure NamesChanged; override;
    procedure Notification(AComponent: TComponent; Operation: TOperation); override;
    { The text of the ID in the active language; Hops counts the components that were asked before. }
    function FindText(const ID: string; Hops: Integer; out Text: string): Boolean; virtual;
    { Access for descendants, which publish a table of their own. }
    property Tables: TmlTables read FTables;
  public
    constructor Create(AOwner: TComponent); override;
    destructor Destroy; override;
    procedure EndLoading; override;
    procedure AddAppliers(Appliers: TInterfaceList); override;
    { The text of an ID in the active language, in the base language where it is not translated; the default, else the
      ID, where nobody knows it. All may be called from any thread, and on a component that is not there yet (nil). The
      pointer that a ...C gives is valid until the program ends. }
    function GetText(const ID: string): string; overload;
    function GetText(const ID, Default: string): string; overload;
    function GetTextC(const ID: string): PChar; overload;
    function GetTextC(const ID, Default: string): PChar; overload;
    function GetTextOrDefault(const ID: string): string; overload;
    function GetTextOrDefault(const ID, Default: string): string; overload;
    function GetTextOrDefaultC(const ID: string): PChar; overload;
    function GetTextOrDefaultC(const ID, Default: string): PChar; overload;
    function GetTextW(const ID: string): UnicodeString; overload;
    function GetTextW(const ID, Default: string): UnicodeString; overload;
    function GetTextOrDefaultW(const ID: string): UnicodeString; overload;
    function GetTextOrDefaultW(const ID, Default: string): UnicodeString; overload;
    { As many as hold: the dispatcher's where there is one. }
    property NumLang: Integer read LanguageCount;
  published
    { In the order in which forms hold them. }
    property NumOfLanguages;
    property LangNames;
    property Language;
    property Delimiter: string read FDelimiter write SetDelimiter;
    { Its number, names and language hold, columns by position. }
    property Dispatcher: TmlLangDispatcher read FDispatcher write SetDispatcher;
    property IgnoreRemovals: Boolean read FIgnoreRemovals write FIgnoreRemovals default False;
    { Whether a language that is written from the other side mirrors the layout, too. }
    property MirrorLayout: Boolean read FMirrorLayout write FMirrorLayout default True;
    property Captions: TStrings index Ord(stCaptions) read GetTable write SetTable;
    property Hints: TStrings index Ord(stHints) read GetTable write SetTable;
    property DisplayLabels: TStrings index Ord(stDisplayLabels) read GetTable write SetTable;
    property Fonts: TStrings index Ord(stFonts) read GetTable write SetTable;
    property MultiLines: TStrings index Ord(stMultiLines) read GetTable write SetTable;
    property DlgsCaptions: TStrings index Ord(stDlgsCaptions) read GetTable write SetTable;
    property Strings: TStrings index Ord(stStrings) read GetTable write SetTable;
    property OtherStrings: TStrings index Ord(stOtherStrings) read GetTable write SetTable;
    property Locales: TStrings index Ord(stLocales) read GetTable write SetTable;
    property Collections: TStrings index Ord(stCollections) read GetTable write SetTable;
    property CharSets: TStrings index Ord(stCharSets) read GetTable write SetTable;
    property States: TStrings index 0 read GetList write SetList;
    property DoNotTranslate: TStrings index 1 read GetList write SetList;
    property ExcludedProperties: TStrings index 2 read GetList write SetList;
    property SmartExcludeProps: TStrings index 3 read GetList write SetList;
    property ExtendedTranslations: TmlExtendedTranslations read FExtended write SetExtended stored HasExtended;
    property OnChangeLanguage;
    property OnMissing: TmlMissingEvent read FOnMissing write FOnMissing;
    property OnKept: TmlKeptEvent read FOnKept write FOnKept;
  end;

implementation

uses
  Mlcodec, Mlloading, Mlpool, Mlproglang, Mltext;

constructor TmlCustomLang.Create(AOwner: TComponent);
begin
  inherited Create(AOwner);
  FLock := TCriticalSection.Create;
  FMirrorLayout := True;
  FTables := TmlTables.Create;
  FStates := TStringList.Create;
  FDoNotTranslate := TStringList.Create;
  FExcludedProperties := TStringList.Create;
  FSmartExcludeProps := TStringList.Create;
  FExtended := TmlExtendedTranslations.Create(Self);
  FApplier := TmlApplier.Create(Self, FTables);
  FKeptApplier := FApplier;
  FApplier.Delimiter := DefaultDelimiter;
  FApplier.OnMissing := ReportMissing;
  FApplier.OnKept := ReportKept;
  FApplier.OnTell := Tell;
  FTables.OnChange := TableChanged;
  FExtended.OnChange := ExtendedChanged;
  TextsChanged;
  RegisterForProgram(Self);
end;

destructor TmlCustomLang.Destroy;
begin
  UnregisterForProgram(Self);
  ForgetLoading(Self);
  FApplier.Detach;
  if FDispatcher <> nil then FDispatcher.RemoveClient(Self);
  FTables.Free;
  FStates.Free;
  FDoNotTranslate.Free;
  FExcludedProperties.Free;
  FSmartExcludeProps.Free;
  FExtended.Free;
  FTexts.Free;
  FLock.Free;
  inherited Destroy;
end;

{ Streamed properties }

function TmlCustomLang.GetTable(Index: Integer): TStrings;
begin
  Result := FTables[TStringsType(Index)];
end;

procedure TmlCustomLang.SetTable(Index: Integer; Value: TStrings);
begin
  FTables[TStringsType(Index)].Assign(Value);
end;

function TmlCustomLang.ListAt(Index: Integer): TStringList;
begin
  case Index of
    0: Result := FStates;
    1: Result := FDoNotTranslate;
    2: Result := FExcludedProperties;
  else
    Result := FSmartExcludeProps;
  end;
end;

function TmlCustomLang.GetList(Index: Integer): TStrings;
begin
  Result := ListAt(Index);
end;

procedure TmlCustomLang.SetList(Index: Integer; Value: TStrings);
begin
  ListAt(Index).Assign(Value);
end;

procedure TmlCustomLang.SetExtended(Value: TmlExtendedTranslations);
begin
  FExtended.Assign(Value);
end;

function TmlCustomLang.HasExtended: Boolean;
begin
  Result := FExtended.Count > 0;
end;

procedure TmlCustomLang.SetDelimiter(const Value: string);
begin
  FDelimiter := Value;
  FApplier.Delimiter := DelimiterOf(Value);
  TableChanged(FTables[stStrings]);
  ExtendedChanged(FExtended);
end;

procedure TmlCustomLang.TableChanged(Sender: TObject);
begin
  if Sender = FTables[stStrings] then TextsChanged else FApplier.TablesChanged;
end;

procedure TmlCustomLang.ExtendedChanged(Sender: TObject);
begin
  FApplier.Extended.Clear;
  FExtended.AddLines(FApplier.Extended, FApplier.Delimiter);
  FApplier.TablesChanged;
end;

procedure TmlCustomLang.NamesChanged;
begin
  TextsChanged;
end;

{ The dispatcher }

{ One of a module that is loaded later comes when everything else is there. }
procedure TmlCustomLang.SetDispatcher(Value: TmlLangDispatcher);
begin
  if Value = FDispatcher then Exit;
  if FDispatcher <> nil then FDispatcher.RemoveClient(Self);
  FDispatcher := Value;
  if Value = nil then Exit;
  Value.AddClient(Self);
  Value.FreeNotification(Self);
  if (csLoading in ComponentState) or (FStreamed and not FLoadingEnded) then Exit;
  if FLoadingEnded then FApplier.Assume(Value.StreamedPlace);
  ApplyLanguages([Self]);
end;

function TmlCustomLang.Decisive: TmlLanguages;
begin
  if FDispatcher <> nil then Result := FDispatcher else Result := Self;
end;

procedure TmlCustomLang.Notification(AComponent: TComponent; Operation: TOperation);
begin
  inherited Notification(AComponent, Operation);
  if (Operation <> opRemove) or (FApplier = nil) then Exit;
  if AComponent = FDispatcher then FDispatcher := nil;
  if not (csDestroying in ComponentState) then FApplier.ComponentGone(AComponent);
end;

{ Languages }

procedure TmlCustomLang.Loaded;
begin
  inherited Loaded;
  FStreamed := True;
  if not (csDesigning in ComponentState) then AwaitEndOfLoading(Self);
end;

procedure TmlCustomLang.EndLoading;
begin
  if FLoadingEnded then Exit;
  FLoadingEnded := True;
  if FDispatcher <> nil then
    FApplier.Assume(FDispatcher.StreamedPlace)
  else
  begin
    FApplier.Assume(ActivePlace);
    TakeProgramLanguage(Self);
  end;
end;

function TmlCustomLang.IsFirstOfOwner: Boolean;
var
  I: Integer;
begin
  Result := True;
  for I := 0 to ComponentIndex - 1 do
    Result := Result and not (Owner.Components[I] is TmlCustomLang);
end;

procedure TmlCustomLang.AddAppliers(Appliers: TInterfaceList);
begin
  FApplier.Place := ActivePlace;
  FApplier.Turns := (Owner <> nil) and IsFirstOfOwner;
  FApplier.Mirror := FMirrorLayout;
  MakeTexts;
  Appliers.Add(FKeptApplier);
end;

{ Components of frames that know the language come along. }
procedure TmlCustomLang.TakeAlong(Within: TComponent; const Language: string; Appliers: TInterfaceList);
var
  I, Place: Integer;
  Other: TmlCustomLang;
begin
  for I := 0 to Within.ComponentCount - 1 do
  begin
    TakeAlong(Within.Components[I], Language, Appliers);
    if (Within = Owner) or not (Within.Components[I] is TmlCustomLang) then Continue;
    Other := TmlCustomLang(Within.Components[I]);
    Place := Other.PlaceOf(Language);
    if (Place = 0) or (Other.Dispatcher <> nil) then Continue;
    Other.StoreLanguage(Place);
    Other.AddAppliers(Appliers);
  end;
end;

procedure TmlCustomLang.ChangeTo(Place: Integer);
var
  Appliers: TInterfaceList;
begin
  StoreLanguage(Place);
  Appliers := TInterfaceList.Create;
  try
    if Owner <> nil then TakeAlong(Owner, LanguageName(Place), Appliers);
    AddAppliers(Appliers);
    ApplyTogether(Appliers);
  finally
    Appliers.Free;
  end;
end;

procedure TmlCustomLang.LanguageMissing(const Name: string);
begin
  ReportMissing(mkLanguage, Name);
end;

procedure TmlCustomLang.ReportMissing(Kind: TmlMissingKind; const Name: string);
begin
  if Assigned(FOnMissing) then FOnMissing(Self, Kind, Name);
end;

procedure TmlCustomLang.ReportKept(const Key, Text: string);
begin
  if Assigned(FOnKept) then FOnKept(Self, Key, Text);
end;

{ Texts }

{ Until the thread that changes the table asks for a text, other threads see the texts as they were. }
procedure TmlCustomLang.TextsChanged;
begin
  FTextsStale := True;
  FTextsChangedBy := GetCurrentThreadId;
end;

procedure TmlCustomLang.MakeTexts;
var
  Texts, Former: TmlTexts;
begin
  Texts := TmlTexts.Create(FTables[stStrings], FApplier.Delimiter, ActivePlace);
  FTextsStale := False;
  FLock.Enter;
  Former := FTexts;
  FTexts := Texts;
  FLock.Leave;
  Former.Free;
end;

function TmlCustomLang.FindText(const ID: string; Hops: Integer; out Text: string): Boolean;
begin
  if FTextsStale and (FTextsChangedBy = GetCurrentThreadId) then MakeTexts;
  FLock.Enter;
  Result := (FTexts <> nil) and FTexts.Find(ID, Text);
  FLock.Leave;
end;

function TmlCustomLang.TextOr(const ID, Default: string): string;
begin
  if Self = nil then
    Result := Default
  else if not FindText(ID, 0, Result) then
  begin
    ReportMissing(mkText, ID);
    Result := Default;
  end;
end;

function TmlCustomLang.GetText(const ID: string): string;
begin
  Result := TextOr(ID, ID);
end;

function TmlCustomLang.GetText(const ID, Default: string): string;
begin
  Result := TextOr(ID, Default);
end;

function TmlCustomLang.GetTextC(const ID: string): PChar;
begin
  Result := KeptText(TextOr(ID, ID));
end;

function TmlCustomLang.GetTextC(const ID, Default: string): PChar;
begin
  Result := KeptText(TextOr(ID, Default));
end;

function TmlCustomLang.GetTextOrDefault(const ID: string): string;
begin
  Result := TextOr(ID, ID);
end;

function TmlCustomLang.GetTextOrDefault(const ID, Default: string): string;
begin
  Result := TextOr(ID, Default);
end;

function TmlCustomLang.GetTextOrDefaultC(const ID: string): PChar;
begin
  Result := KeptText(TextOr(ID, ID));
end;

function TmlCustomLang.GetTextOrDefaultC(const ID, Default: string): PChar;
begin
  Result := KeptText(TextOr(ID, Default));
end;

function TmlCustomLang.GetTextW(const ID: string): UnicodeString;
begin
  Result := UnicodeText(TextOr(ID, ID));
end;

function TmlCustomLang.GetTextW(const ID, Default: string): UnicodeString;
begin
  Result := UnicodeText(TextOr(ID, Default));
end;

function TmlCustomLang.GetTextOrDefaultW(const ID: string): UnicodeString;
begin
  Result := UnicodeText(TextOr(ID, ID));
end;

function TmlCustomLang.GetTextOrDefaultW(const ID, Default: string): UnicodeString;
begin
  Result := UnicodeText(TextOr(ID, Default));
end;

end.

{ The localization component of a form, frame or data module: its tables, the texts of the active language by their
  IDs, and the properties that follow the language. }
unit Mlcustomlang;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, SyncObjs, Mlapplier, Mlchange, Mlcodec, Mlextended, Mllangdispatcher, Mllangtexts, Mllanguages, Mlnames,
  Mltables, Mltexts, Mltransfer;

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
    FReport: TStringList;
    { While something is loaded. }
    FNames: TmlNames;
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
    procedure Take(const FileName, OneLanguage: string; Kind: TmlTransferKind);
    procedure Meet(Transfer: TmlTransfer; const FileName: string);
    procedure WriteLanguages(const Languages: TmlFields);
    procedure ShowTaken;
    procedure ShowAnew;
    function KnowsKey(const Key: string): Boolean;
    function GetReport: TStrings;
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
    { The form is loaded, and nothing is shown yet; or a dispatcher has come later, with other languages. }
    procedure AddTexts; virtual;
    { False in a form designer, and while the form is being loaded. }
    function IsRunning: Boolean;
    { Merges a file; one that cannot be used is told by OnMissing. }
    procedure MergeIfUsable(const FileName: string);
    { The name by which translation files know the form. }
    function FormName: string;
    { What travels through translation files; the caller frees it. }
    function ReadTexts: TmlLangTexts;
    procedure WriteTexts(Texts: TmlLangTexts);
    { Texts of this component that somebody has edited; what is shown follows, and the program is told. }
    procedure ShowEdited(Texts: TmlLangTexts);
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
    { Translation files; the extension .mlb is the binary kind. EmlTranslationFile, with the place, for one that cannot
      be used; the component and the file are then as they were. Saving keeps what else the file holds; Delimiter is
      that of a text file from now on, '' the one that it has. }
    procedure SaveAllToFile(const FileName, Delimiter: string);
    procedure SaveAllToBinaryFile(const FileName: string);
    { One table, and the extended translations, alone. }
    procedure SaveToFile(Kind: TStringsType; const FileName, Delimiter: string);
    procedure SaveExtendedToFile(const FileName, Delimiter: string);
    { Replaces languages and translations by those of the file, or merges like MergeAllFromFile. A dispatcher has to
      have the file's languages. }
    procedure LoadAllFromFile(const FileName: string; Replace: Boolean = True);
    procedure LoadAllFromBinaryFile(const FileName: string);
    { Adds and overwrites translations; what the file lacks stays. }
    procedure MergeAllFromFile(const FileName: string);
    { The same of one language, by its name without regard to case. }
    procedure LoadLanguage(const FileName, LanguageName: string);
    { Empties the translations; keys, base texts and the languages stay. }
    procedure ClearTranslations;
    { What the last loading or merging added, overwrote, dropped and found no place for, a line each. }
    property Report: TStrings read GetReport;
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
  SysUtils, Mlentry, Mllangfiles, Mlloading, Mlpool, Mlproglang, Mltext, Mltranslationfile;

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
  FReport := TStringList.Create;
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
  FReport.Free;
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
  if FLoadingEnded then
  begin
    FApplier.Assume(Value.StreamedPlace);
    AddTexts;
  end;
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
  if FDispatcher <> nil then
    FApplier.Assume(FDispatcher.StreamedPlace)
  else
    FApplier.Assume(ActivePlace);
  AddTexts;
  FLoadingEnded := True;
  if FDispatcher = nil then TakeProgramLanguage(Self);
end;

procedure TmlCustomLang.AddTexts;
begin
  { the form holds them all }
end;

function TmlCustomLang.IsRunning: Boolean;
begin
  Result := ([csLoading, csDesigning] * ComponentState = []) and (FLoadingEnded or not FStreamed);
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

{ Translation files }

function TmlCustomLang.GetReport: TStrings;
begin
  Result := FReport;
end;

function TmlCustomLang.FormName: string;
begin
  if Owner = nil then Result := Name else Result := FormNameOf(Owner.ClassType);
end;

function TmlCustomLang.ReadTexts: TmlLangTexts;
var
  Place: Integer;
begin
  Result := TmlLangTexts.Create;
  SetLength(Result.Languages, LanguageCount);
  for Place := 1 to LanguageCount do
    Result.Languages[Place - 1] := LanguageName(Place);
  Result.ReadTables(FTables, FStates, FExtended, FApplier.Delimiter);
end;

procedure TmlCustomLang.WriteLanguages(const Languages: TmlFields);
var
  I: Integer;
  IsSame: Boolean;
begin
  IsSame := Length(Languages) = LanguageCount;
  for I := 0 to High(Languages) do
    IsSame := IsSame and (Languages[I] = LanguageName(I + 1));
  if IsSame then Exit;
  NumOfLanguages := Length(Languages);
  LangNames.Clear;
  for I := 0 to High(Languages) do
    LangNames.Add(Languages[I]);
end;

procedure TmlCustomLang.WriteTexts(Texts: TmlLangTexts);
begin
  WriteLanguages(Texts.Languages);
  Texts.WriteTables(FTables, FStates, FExtended, FApplier.Delimiter);
end;

procedure TmlCustomLang.SaveAllToFile(const FileName, Delimiter: string);
var
  Texts: TmlLangTexts;
begin
  Texts := ReadTexts;
  try
    WriteForm(FileName, Delimiter, FormName, Texts);
  finally
    Texts.Free;
  end;
end;

procedure TmlCustomLang.SaveAllToBinaryFile(const FileName: string);
begin
  SaveAllToFile(FileName, '');
end;

procedure TmlCustomLang.SaveToFile(Kind: TStringsType; const FileName, Delimiter: string);
var
  Texts: TmlLangTexts;
begin
  Texts := ReadTexts;
  try
    WriteParts(FileName, Delimiter, FormName, Texts, [Kind], False);
  finally
    Texts.Free;
  end;
end;

procedure TmlCustomLang.SaveExtendedToFile(const FileName, Delimiter: string);
var
  Texts: TmlLangTexts;
begin
  Texts := ReadTexts;
  try
    WriteParts(FileName, Delimiter, FormName, Texts, [], True);
  finally
    Texts.Free;
  end;
end;

function TmlCustomLang.KnowsKey(const Key: string): Boolean;
var
  Entry: TmlEntry;
begin
  Entry := TmlEntry.Create(Key, '', FApplier.Delimiter, 1);
  try
    Result := (Owner <> nil) and Entry.Check(Owner, FNames);
  finally
    Entry.Free;
  end;
end;

procedure TmlCustomLang.Meet(Transfer: TmlTransfer; const FileName: string);
var
  Missing: string;
begin
  if not Transfer.HaveOneBase then
    raise EmlTranslationFile.Create(FileName, 0, 'the base language of ' + FormName + ' is another one there',
      'Give both the same base language');
  Missing := Transfer.MeetLanguages(FDispatcher <> nil);
  if Missing <> '' then
    raise EmlTranslationFile.Create(FileName, 0, FormName + ' is linked to the dispatcher ' + FDispatcher.Name +
      ', which has no language ' + Missing, 'Add the language to the dispatcher first');
  if Length(Transfer.Names) > MostLanguages then
    raise EmlTranslationFile.Create(FileName, 0, FormName + ' would have more languages than anyone has', 'Remove some');
end;

procedure TmlCustomLang.Take(const FileName, OneLanguage: string; Kind: TmlTransferKind);
var
  Own, Theirs: TmlLangTexts;
  Transfer: TmlTransfer;
begin
  FReport.Clear;
  Transfer := nil;
  FNames := TmlNames.Create;
  Theirs := TmlLangTexts.Create;
  Own := ReadTexts;
  try
    if not ReadForm(FileName, FormName, Theirs) then
    begin
      FReport.Add('nothing: the file holds nothing of ' + FormName);
      Exit;
    end;
    Transfer := TmlTransfer.Create(Kind, Own, Theirs, KnowsKey, FReport);
    if (OneLanguage <> '') and not Transfer.CutTo(OneLanguage) then Exit;
    Meet(Transfer, FileName);
    Transfer.Run;
    WriteTexts(Own);
  finally
    Transfer.Free;
    Theirs.Free;
    Own.Free;
    FreeAndNil(FNames);
  end;
  ShowTaken;
end;

{ What the properties show was set by entries that know it, or is the base text. }
procedure TmlCustomLang.ShowTaken;
begin
  TextsChanged;
  if [csLoading, csDesigning] * ComponentState <> [] then Exit;
  FApplier.Assume(1);
  if not IsRunning then Exit;
  if FDispatcher = nil then TakeProgramLanguage(Self);
  ShowAnew;
end;

{ Of a property that a form sets over its frame's component the form's text holds. }
procedure TmlCustomLang.ShowAnew;
var
  Appliers: TInterfaceList;
  Host: TComponent;
  I: Integer;
begin
  Appliers := TInterfaceList.Create;
  try
    AddAppliers(Appliers);
    Host := Owner;
    if Host <> nil then Host := Host.Owner;
    while Host <> nil do
    begin
      for I := 0 to Host.ComponentCount - 1 do
        if Host.Components[I] is TmlCustomLang then TmlCustomLang(Host.Components[I]).AddAppliers(Appliers);
      Host := Host.Owner;
    end;
    ApplyTogether(Appliers);
  finally
    Appliers.Free;
  end;
end;

procedure TmlCustomLang.ShowEdited(Texts: TmlLangTexts);
begin
  WriteTexts(Texts);
  FApplier.Assume(1);
  ShowAnew;
end;

procedure TmlCustomLang.LoadAllFromFile(const FileName: string; Replace: Boolean);
begin
  if Replace then Take(FileName, '', tkLoad) else Take(FileName, '', tkMerge);
end;

procedure TmlCustomLang.LoadAllFromBinaryFile(const FileName: string);
begin
  Take(FileName, '', tkLoad);
end;

procedure TmlCustomLang.MergeAllFromFile(const FileName: string);
begin
  Take(FileName, '', tkMerge);
end;

{ Entries of a form that is not saved in its base language note what they show before its text becomes another one. }
procedure TmlCustomLang.MergeIfUsable(const FileName: string);
begin
  FApplier.NoteShown;
  try
    MergeAllFromFile(FileName);
  except
    on E: EmlTranslationFile do
    begin
      FApplier.TellMissing(mkFile, E.Message);
      if IsRunning then ApplyLanguages([Self]);
    end;
  end;
end;

procedure TmlCustomLang.LoadLanguage(const FileName, LanguageName: string);
begin
  if LanguageName <> '' then Take(FileName, LanguageName, tkMerge);
end;

procedure TmlCustomLang.ClearTranslations;
var
  Texts: TmlLangTexts;
begin
  Texts := ReadTexts;
  try
    Texts.Clear;
    WriteTexts(Texts);
  finally
    Texts.Free;
  end;
  ShowTaken;
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

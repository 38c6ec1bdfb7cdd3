{ The languages of a component: their number, their names, and which one is active. }
unit Mllanguages;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes;

const
  { More languages than anyone has; keeps a broken form from filling the memory. }
  MostLanguages = 10000;

type
  { What could not be found. }
  TmlMissingKind = (mkText, mkLanguage, mkTarget, mkRefused, mkFile);
  { Name is an ID, the name of a language, or the key of an entry (behind it, where the property refused a value, why);
    of a translation file that cannot be used what is wrong there, and the remedy. A missing text is told in the thread
    that asked for it. }
  TmlMissingEvent = procedure(Sender: TObject; Kind: TmlMissingKind; const Name: string) of object;

  { Places of languages count from 1, the base language's. The active language is stored by its name; the base
    language is active where the name is empty or unknown. }
  TmlLanguages = class(TComponent)
  private
    FNumOfLanguages: Integer;
    FLangNames: TStringList;
    FLanguage: string;
    { A descendant that is being written compares itself with this one. }
    FCompared: Boolean;
    FOnChangeLanguage: TNotifyEvent;
    FWatchers: array of TNotifyEvent;
    procedure SetLangNames(Value: TStrings);
    procedure SetLanguage(const Value: string);
    procedure SetNumOfLanguages(Value: Integer);
    function GetLangNames: TStrings;
    function GetLanguage: string;
    function OwnName(Place: Integer): string;
  protected
    { The component that has number, names and language for this one. }
    function Decisive: TmlLanguages; virtual;
    { The language has to become the one at this place. }
    procedure ChangeTo(Place: Integer); virtual; abstract;
    procedure LanguageMissing(const Name: string); virtual;
    procedure Tell(Sender: TObject); virtual;
    { Names, number or delimiter have changed. }
    procedure NamesChanged; virtual;
    procedure WriteState(Writer: TWriter); override;
    property OnChangeLanguage: TNotifyEvent read FOnChangeLanguage write FOnChangeLanguage;
  public
    constructor Create(AOwner: TComponent); override;
    destructor Destroy; override;
    function LanguageCount: Integer;
    { A generated name where there is none. }
    function LanguageName(Place: Integer): string;
    { 0 for a name that is not there. }
    function PlaceOf(const Name: string): Integer;
    function ActivePlace: Integer;
    { Stores the active language; nothing else happens. }
    procedure StoreLanguage(Place: Integer);
    { Everything that is loaded together is there now. }
    procedure EndLoading; virtual; abstract;
    { What shows languages or texts by itself is told of a change before the program is. Watchers are components; they
      leave before they go. }
    procedure AddWatcher(const Watcher: TNotifyEvent);
    procedure RemoveWatcher(const Watcher: TNotifyEvent);
    { Adds what sets the active language. }
    procedure AddAppliers(Appliers: TInterfaceList); virtual; abstract;
    property NumOfLanguages: Integer read FNumOfLanguages write SetNumOfLanguages default 1;
    property LangNames: TStrings read GetLangNames write SetLangNames;
    { A name that is not among the names leaves the language as it is. }
    property Language: string read GetLanguage write SetLanguage;
  end;

{ The name of a language at a place that nobody has named. }
function GeneratedLangName(Place: Integer): string;

implementation

uses
  Math, SysUtils, Mltext;

function GeneratedLangName(Place: Integer): string;
begin
  Result := Format('Language N%d', [Place]);
end;

constructor TmlLanguages.Create(AOwner: TComponent);
begin
  inherited Create(AOwner);
  FNumOfLanguages := 1;
  FLangNames := TStringList.Create;
end;

destructor TmlLanguages.Destroy;
begin
  FLangNames.Free;
  inherited Destroy;
end;

function TmlLanguages.Decisive: TmlLanguages;
begin
  Result := Self;
end;

procedure TmlLanguages.LanguageMissing(const Name: string);
begin
  { told by those that have an event for it }
end;

procedure TmlLanguages.NamesChanged;
begin
  { nothing depends on them here }
end;

procedure TmlLanguages.AddWatcher(const Watcher: TNotifyEvent);
begin
  SetLength(FWatchers, Length(FWatchers) + 1);
  FWatchers[High(FWatchers)] := Watcher;
end;

procedure TmlLanguages.RemoveWatcher(const Watcher: TNotifyEvent);
var
  I, Kept: Integer;
begin
  Kept := 0;
  for I := 0 to High(FWatchers) do
    if TMethod(FWatchers[I]).Data <> TMethod(Watcher).Data then
    begin
      FWatchers[Kept] := FWatchers[I];
      Inc(Kept);
    end;
  SetLength(FWatchers, Kept);
end;

procedure TmlLanguages.Tell(Sender: TObject);
var
  I: Integer;
begin
  for I := High(FWatchers) downto 0 do
    if I <= High(FWatchers) then FWatchers[I](Self);
  if Assigned(FOnChangeLanguage) then FOnChangeLanguage(Self);
end;

function TmlLanguages.GetLangNames: TStrings;
begin
  Result := FLangNames;
end;

procedure TmlLanguages.SetLangNames(Value: TStrings);
begin
  FLangNames.Assign(Value);
  NamesChanged;
end;

procedure TmlLanguages.SetNumOfLanguages(Value: Integer);
begin
  FNumOfLanguages := Value;
  NamesChanged;
end;

function TmlLanguages.LanguageCount: Integer;
begin
  Result := EnsureRange(Decisive.FNumOfLanguages, 1, MostLanguages);
end;

function TmlLanguages.OwnName(Place: Integer): string;
begin
  Result := '';
  if Place <= FLangNames.Count then Result := FLangNames[Place - 1];
  if Result = '' then Result := GeneratedLangName(Place);
end;

function TmlLanguages.LanguageName(Place: Integer): string;
begin
  Result := Decisive.OwnName(Place);
end;

function TmlLanguages.PlaceOf(const Name: string): Integer;
begin
  for Result := 1 to LanguageCount do
    if SameIgnoringCase(LanguageName(Result), Name) then Exit;
  Result := 0;
end;

function TmlLanguages.ActivePlace: Integer;
begin
  Result := 1;
  if Decisive.FLanguage <> '' then Result := Max(PlaceOf(Decisive.FLanguage), 1);
end;

{ Streaming stores the name as it is. }
function TmlLanguages.GetLanguage: string;
begin
  if FCompared or (csWriting in ComponentState) then
    Result := FLanguage
  else
    Result := LanguageName(ActivePlace);
end;

procedure TmlLanguages.SetLanguage(const Value: string);
var
  Place: Integer;
begin
  if [csLoading, csDesigning] * ComponentState <> [] then
  begin
    FLanguage := Value;
    Exit;
  end;
  Place := 1;
  if Value <> '' then Place := PlaceOf(Value);
  if Place = 0 then
    LanguageMissing(Value)
  else if Place <> ActivePlace then
    Decisive.ChangeTo(Place);
end;

procedure TmlLanguages.WriteState(Writer: TWriter);
var
  Ancestor: TPersistent;
begin
  Ancestor := Writer.Ancestor;
  if Ancestor is TmlLanguages then TmlLanguages(Ancestor).FCompared := True;
  try
    inherited WriteState(Writer);
  finally
    if Ancestor is TmlLanguages then TmlLanguages(Ancestor).FCompared := False;
  end;
end;

procedure TmlLanguages.StoreLanguage(Place: Integer);
begin
  if Place = 1 then FLanguage := '' else FLanguage := OwnName(Place);
end;

end.

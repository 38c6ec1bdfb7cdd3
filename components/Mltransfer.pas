{ How texts come from a translation file into a component. Loading replaces: languages and translations that the file
  has not are dropped, but no entry and no base text. Merging drops nothing. }
unit Mltransfer;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlcodec, Mllangtexts, Mltables;

type
  TmlTransferKind = (tkLoad, tkMerge);

  { Whether the form has such a property. }
  TmlKnowsKey = function(const Key: string): Boolean of object;

  TmlTransfer = class
  private
    FKind: TmlTransferKind;
    FOwn, FFile: TmlLangTexts;
    FReport: TStrings;
    FKnowsKey: TmlKnowsKey;
    { Of the languages from now on where each was, and of each of the file where it is now; -1 for none. }
    FFormer, FPlaces: TmlPlaces;
    FNames: TmlFields;
    procedure AddLanguage(const Name: string; Former: Integer);
    function OwnPlaceOf(Column: Integer): Integer;
    function Spelled(Place, Column: Integer): string;
    procedure LoadLanguages;
    procedure MergeLanguages;
    procedure TellLanguages;
    procedure TakeTable(const Name: string; var Own: TmlTextEntries; const Theirs: TmlTextEntries;
      IsFree, HasStates, DropsRest: Boolean);
    function HasPlaceFor(const Key: string; IsFree: Boolean): Boolean;
    procedure TakeEntry(const Where: string; var Own: TmlTextEntry; const Theirs: TmlTextEntry; HasStates: Boolean);
    function Settled(const Taken, Former: TmlMarkedText; HasSameBase: Boolean): TmlMarkedText;
    procedure Leave(const Where: string; var Own: TmlTextEntry);
    procedure Tell(const What, Where: string; Place: Integer; const Text: string);
  public
    { Own becomes what the component is to have; Report gets a line for what was added, overwritten, dropped and has
      no place in the form. }
    constructor Create(Kind: TmlTransferKind; Own, Theirs: TmlLangTexts; KnowsKey: TmlKnowsKey; Report: TStrings);
    { Takes this language only; False, with a line in the report, where the file has no translations into it. }
    function CutTo(const Language: string): Boolean;
    { The languages from now on, which have to be there already where IsFixed. '' where that is so, else the name of one
      that is not. }
    function MeetLanguages(IsFixed: Boolean): string;
    { False where the base language of the one is another language of the other. }
    function HaveOneBase: Boolean;
    procedure Run;
    property Names: TmlFields read FNames;
  end;

{ The place of a language, 0-based, without regard to case; -1 for none. }
function PlaceOfLanguage(const Languages: TmlFields; const Name: string): Integer;

implementation

uses
  SysUtils, Mllanguages, Mlmap, Mlmarks, Mltext, Mltranslationfile, Mlutf8;

const
  NowhereElse = -1;

function PlaceOfLanguage(const Languages: TmlFields; const Name: string): Integer;
begin
  for Result := 0 to High(Languages) do
    if SameIgnoringCase(PlainLanguageName(Languages[Result]), Name) then Exit;
  Result := NowhereElse;
end;

function IsInDoubt(const Text: TmlMarkedText): Boolean;
begin
  Result := (Text.Mark.State = 'stale') or (Text.Mark.State = 'touched');
end;

{ Not empty, and not equal to the base text for no known reason. }
function IsTranslation(const Text: TmlMarkedText; const Base: string): Boolean;
begin
  Result := (Text.Text <> '') and ((Text.Text <> Base) or (Text.Mark.State <> ''));
end;

{ A translation when its base text becomes another one: what equals the former base text for no known reason follows
  it, any other is in doubt until the base text is again what had been translated. Settings only follow. }
function WithNewBase(const Text: TmlMarkedText; const Former, Base: string; HasStates: Boolean): TmlMarkedText;
begin
  Result := Text;
  if (Text.Text = '') or (Former = Base) then Exit;
  if (Text.Mark.State = '') and ((Text.Text = Former) or not HasStates) then
  begin
    if Text.Text = Former then Result.Text := Base;
    Exit;
  end;
  if not IsInDoubt(Text) then Result.Mark.Former := Former;
  if Result.Mark.Former = Base then
  begin
    Result.Mark := NoMark;
    if Text.Text = Base then Result.Mark.State := 'same';
  end
  else if DifferInLooksOnly(Result.Mark.Former, Base) then
    Result.Mark.State := 'touched'
  else
    Result.Mark.State := 'stale';
end;

constructor TmlTransfer.Create(Kind: TmlTransferKind; Own, Theirs: TmlLangTexts; KnowsKey: TmlKnowsKey;
  Report: TStrings);
begin
  inherited Create;
  FKind := Kind;
  FOwn := Own;
  FFile := Theirs;
  FKnowsKey := KnowsKey;
  FReport := Report;
end;

function TmlTransfer.CutTo(const Language: string): Boolean;
var
  Place: Integer;
  Columns: TmlPlaces;
  Names: TmlFields;
begin
  Place := PlaceOfLanguage(FFile.Languages, PlainLanguageName(Language));
  Result := Place > 0;
  if not Result then
  begin
    FReport.Add('nothing: the file has no translations of the form into ' + Language);
    Exit;
  end;
  Columns := nil;
  SetLength(Columns, 2);
  Columns[1] := Place;
  Names := nil;
  SetLength(Names, 2);
  Names[0] := FFile.Languages[0];
  Names[1] := FFile.Languages[Place];
  FFile.Move(Names, Columns);
end;

function TmlTransfer.HaveOneBase: Boolean;
var
  Mine, Theirs: string;
begin
  Mine := PlainLanguageName(FOwn.Languages[0]);
  Theirs := FFile.Languages[0];
  Result := SameIgnoringCase(Mine, Theirs) or
    ((PlaceOfLanguage(FOwn.Languages, Theirs) < 0) and (PlaceOfLanguage(FFile.Languages, Mine) < 0));
end;

procedure TmlTransfer.AddLanguage(const Name: string; Former: Integer);
begin
  SetLength(FNames, Length(FNames) + 1);
  FNames[High(FNames)] := Name;
  SetLength(FFormer, Length(FNames));
  FFormer[High(FFormer)] := Former;
end;

{ Where a language of the file is in the component; one that nobody has named is the one at its place. }
function TmlTransfer.OwnPlaceOf(Column: Integer): Integer;
begin
  Result := PlaceOfLanguage(FOwn.Languages, FFile.Languages[Column]);
  if Column = 0 then Result := 0;
  if (Result < 0) and (Column <= High(FOwn.Languages)) and
    (FOwn.Languages[Column] = GeneratedLangName(Column + 1)) and
    (PlaceOfLanguage(FFile.Languages, FOwn.Languages[Column]) < 0) then
    Result := Column;
end;

{ A language that the component knows keeps its spelling. }
function TmlTransfer.Spelled(Place, Column: Integer): string;
begin
  Result := FFile.Languages[Column];
  if (Place >= 0) and SameIgnoringCase(PlainLanguageName(FOwn.Languages[Place]), Result) then
    Result := FOwn.Languages[Place];
end;

{ The file's languages in its order. }
procedure TmlTransfer.LoadLanguages;
var
  I, Place: Integer;
begin
  for I := 0 to High(FFile.Languages) do
  begin
    Place := OwnPlaceOf(I);
    AddLanguage(Spelled(Place, I), Place);
    FPlaces[I] := I;
  end;
end;

procedure TmlTransfer.MergeLanguages;
var
  I: Integer;
begin
  for I := 0 to High(FOwn.Languages) do
    AddLanguage(FOwn.Languages[I], I);
  for I := 1 to High(FFile.Languages) do
  begin
    FPlaces[I] := OwnPlaceOf(I);
    if FPlaces[I] >= 0 then
      FNames[FPlaces[I]] := Spelled(FPlaces[I], I)
    else
    begin
      AddLanguage(FFile.Languages[I], -1);
      FPlaces[I] := High(FNames);
    end;
  end;
end;

function TmlTransfer.MeetLanguages(IsFixed: Boolean): string;
begin
  SetLength(FPlaces, Length(FFile.Languages));
  if (FKind = tkMerge) or IsFixed then MergeLanguages else LoadLanguages;
  Result := '';
  if IsFixed and (Length(FNames) > Length(FOwn.Languages)) then Result := FNames[Length(FOwn.Languages)];
end;

procedure TmlTransfer.TellLanguages;
var
  I, J: Integer;
  IsThere: Boolean;
begin
  for I := 0 to High(FNames) do
    if FFormer[I] < 0 then FReport.Add('added: language ' + FNames[I]);
  for I := 1 to High(FOwn.Languages) do
  begin
    IsThere := False;
    for J := 0 to High(FFormer) do
      IsThere := IsThere or (FFormer[J] = I);
    if not IsThere then FReport.Add('dropped: language ' + FOwn.Languages[I]);
  end;
end;

procedure TmlTransfer.Tell(const What, Where: string; Place: Integer; const Text: string);
begin
  FReport.Add(Format('%s: %s (%s): %s', [What, Where, FNames[Place], Text]));
end;

procedure TmlTransfer.Run;
var
  Kind: TStringsType;
begin
  TellLanguages;
  FOwn.Move(FNames, FFormer);
  for Kind := Low(Kind) to High(Kind) do
    TakeTable(TableName(Kind), FOwn.Tables[Kind], FFile.Tables[Kind], Kind in [stStrings, stLocales],
      not (Kind in [stFonts, stLocales, stCharSets]), (FKind = tkLoad) and (Kind <> stLocales));
  FKnowsKey := nil;
  TakeTable('ExtendedTranslations', FOwn.Extended, FFile.Extended, False, True, FKind = tkLoad);
end;

type
  { Entries found by their keys, of a key that stands twice each by its turn. }
  TmlEntryIndex = class
  private
    FKeys: TmlMap;
    FNext, FFirstOf, FLastOf: array of Integer;
  public
    constructor Create(const Entries: TmlTextEntries);
    destructor Destroy; override;
    { -1 where none is left; IsKnown tells whether there was one. }
    function Take(const Key: string; out IsKnown: Boolean): Integer;
    { A key that was not known and is taken. }
    procedure Add(const Key: string);
  end;

constructor TmlEntryIndex.Create(const Entries: TmlTextEntries);
var
  I, Known, Number: Integer;
begin
  inherited Create;
  FKeys := TmlMap.Create(Length(Entries));
  SetLength(FNext, Length(Entries));
  SetLength(FFirstOf, Length(Entries));
  SetLength(FLastOf, Length(Entries));
  for I := 0 to High(Entries) do
  begin
    Known := FKeys.Count;
    Number := FKeys.Add(Entries[I].Key);
    FNext[I] := NowhereElse;
    if Number = Known then FFirstOf[Number] := I else FNext[FLastOf[Number]] := I;
    FLastOf[Number] := I;
  end;
  SetLength(FFirstOf, FKeys.Count);
end;

destructor TmlEntryIndex.Destroy;
begin
  FKeys.Free;
  inherited Destroy;
end;

function TmlEntryIndex.Take(const Key: string; out IsKnown: Boolean): Integer;
var
  Number: Integer;
begin
  Result := NowhereElse;
  Number := FKeys.Find(Key);
  IsKnown := Number >= 0;
  if not IsKnown or (Number > High(FFirstOf)) then Exit;
  Result := FFirstOf[Number];
  if Result >= 0 then FFirstOf[Number] := FNext[Result];
end;

procedure TmlEntryIndex.Add(const Key: string);
begin
  FKeys.Add(Key);
end;

function TmlTransfer.HasPlaceFor(const Key: string; IsFree: Boolean): Boolean;
begin
  Result := IsFree or (Assigned(FKnowsKey) and FKnowsKey(Key));
end;

procedure TmlTransfer.TakeTable(const Name: string; var Own: TmlTextEntries; const Theirs: TmlTextEntries;
  IsFree, HasStates, DropsRest: Boolean);
var
  Index: TmlEntryIndex;
  Met: array of Boolean;
  I, Found, OwnCount: Integer;
  IsKnown: Boolean;
  Base: TmlMarkedText;
begin
  OwnCount := Length(Own);
  Met := nil;
  SetLength(Met, OwnCount + Length(Theirs));
  Index := TmlEntryIndex.Create(Own);
  try
    for I := 0 to High(Theirs) do
    begin
      Found := Index.Take(Theirs[I].Key, IsKnown);
      if (Found < 0) and not IsKnown and HasPlaceFor(Theirs[I].Key, IsFree) then
      begin
        Found := Length(Own);
        SetLength(Own, Found + 1);
        Own[Found].Key := Theirs[I].Key;
        SetLength(Own[Found].Texts, Length(FNames));
        Base := TextAt(Theirs[I], 0);
        SetTextAt(Own[Found], 0, Base);
        if IsFree then Index.Add(Theirs[I].Key);
        FReport.Add('added: ' + Name + ' ' + Theirs[I].Key);
      end;
      if (Found < 0) and IsKnown then
        FReport.Add('no place: ' + Name + ' ' + Theirs[I].Key + ' (stands in the file more often than in the form)')
      else if Found < 0 then
        FReport.Add('no place: ' + Name + ' ' + Theirs[I].Key)
      else
      begin
        Met[Found] := True;
        TakeEntry(Name + ' ' + Theirs[I].Key, Own[Found], Theirs[I], HasStates);
      end;
    end;
  finally
    Index.Free;
  end;
  for I := 0 to OwnCount - 1 do
    if DropsRest and not Met[I] then Leave(Name + ' ' + Own[I].Key, Own[I]);
end;

procedure TmlTransfer.TakeEntry(const Where: string; var Own: TmlTextEntry; const Theirs: TmlTextEntry;
  HasStates: Boolean);
var
  Column, Place: Integer;
  Base: string;
  Former, Taken: TmlMarkedText;
  WasTranslated, Says: Boolean;
begin
  Base := TextAt(Own, 0).Text;
  for Column := 1 to High(FPlaces) do
  begin
    Place := FPlaces[Column];
    Former := TextAt(Own, Place);
    WasTranslated := IsTranslation(Former, Base);
    Taken := WithNewBase(TextAt(Theirs, Column), TextAt(Theirs, 0).Text, Base, HasStates);
    Says := Taken.Text <> '';
    if FKind = tkMerge then Says := IsTranslation(Taken, Base);
    if not Says and (WasTranslated or (Taken.Text = '')) then Continue;
    SetTextAt(Own, Place, Settled(Taken, Former, TextAt(Theirs, 0).Text = Base));
    if WasTranslated and (Former.Text <> Taken.Text) then Tell('overwritten', Where, Place, Former.Text);
  end;
end;

{ What is in doubt on one side only has been looked at on the other: the same text in a merge, and a text that was
  written anew in the file, of which the base text is the form's. }
function TmlTransfer.Settled(const Taken, Former: TmlMarkedText; HasSameBase: Boolean): TmlMarkedText;
var
  IsSame: Boolean;
begin
  Result := Taken;
  IsSame := Taken.Text = Former.Text;
  if IsSame and (FKind = tkMerge) and IsInDoubt(Taken) and not IsInDoubt(Former) then
    Result := Former
  else if HasSameBase and not IsSame and IsInDoubt(Taken) and (Taken.Mark.State = Former.Mark.State) and
    (Taken.Mark.Former = Former.Mark.Former) then
    Result.Mark := NoMark;
end;

{ An entry that the file has not. }
procedure TmlTransfer.Leave(const Where: string; var Own: TmlTextEntry);
var
  Column: Integer;
  Former, Empty: TmlMarkedText;
begin
  Empty.Text := '';
  Empty.Mark := NoMark;
  for Column := 1 to High(FPlaces) do
  begin
    Former := TextAt(Own, FPlaces[Column]);
    if not IsTranslation(Former, TextAt(Own, 0).Text) then Continue;
    Tell('dropped', Where, FPlaces[Column], Former.Text);
    SetTextAt(Own, FPlaces[Column], Empty);
  end;
end;

end.

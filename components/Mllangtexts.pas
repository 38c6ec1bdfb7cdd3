{ What of a localization component travels through translation files, as values. }
unit Mllangtexts;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlcodec, Mlextended, Mlmarks, Mltables, Mltranslationfile;

type
  { A text of a language, and what is recorded of it. }
  TmlMarkedText = record
    Text: string;
    Mark: TmlMark;
  end;
  TmlMarkedTexts = array of TmlMarkedText;

  { An entry of a table, or "Component:Property" of the extended translations; a text a language, base first. }
  TmlTextEntry = record
    Key: string;
    Texts: TmlMarkedTexts;
    { As a component holds it. }
    Line: string;
  end;
  TmlTextEntries = array of TmlTextEntry;

  { Where the languages of texts were before; 0-based, -1 for a new one. }
  TmlPlaces = array of Integer;

  TmlLangTexts = class
  private
    FUnknownStates: TStringList;
    procedure Mark(Marks: TmlMarks);
    procedure AddStates(var Section: TmlFormSection; Kind: TStringsType; var Count: Integer);
    function StatesOf(Kind: TStringsType): Integer;
  public
    Languages: TmlFields;
    Tables: array[TStringsType] of TmlTextEntries;
    Extended: TmlTextEntries;
    constructor Create;
    destructor Destroy; override;
    procedure ReadTables(Lists: TmlTables; States: TStrings; Translations: TmlExtendedTranslations;
      const Delimiter: string);
    { Writes the lists that differ, and of the extended translations the values. }
    procedure WriteTables(Lists: TmlTables; States: TStrings; Translations: TmlExtendedTranslations;
      const Delimiter: string);
    procedure ReadSection(const Section: TmlFormSection);
    function ToSection(const Address: TmlFormAddress): TmlFormSection;
    procedure Move(const Names: TmlFields; const Former: TmlPlaces);
    { Empties what is no base text, but for the tags of languages. }
    procedure Clear;
  end;

{ The text at a 0-based place; an empty one where there is none. }
function TextAt(const Entry: TmlTextEntry; Place: Integer): TmlMarkedText;
procedure SetTextAt(var Entry: TmlTextEntry; Place: Integer; const Text: TmlMarkedText);

implementation

function TextAt(const Entry: TmlTextEntry; Place: Integer): TmlMarkedText;
begin
  Result.Text := '';
  Result.Mark := NoMark;
  if Place < Length(Entry.Texts) then Result := Entry.Texts[Place];
end;

procedure SetTextAt(var Entry: TmlTextEntry; Place: Integer; const Text: TmlMarkedText);
begin
  if Place >= Length(Entry.Texts) then SetLength(Entry.Texts, Place + 1);
  Entry.Texts[Place] := Text;
end;

function EntryOf(const Key: string; const Fields: TmlFields; From: Integer): TmlTextEntry;
var
  I: Integer;
begin
  Result.Key := Key;
  Result.Line := '';
  Result.Texts := nil;
  SetLength(Result.Texts, Length(Fields) - From);
  for I := From to High(Fields) do
    Result.Texts[I - From].Text := Fields[I];
end;

function FieldsOf(const Entry: TmlTextEntry; Count: Integer): TmlFields;
var
  I: Integer;
begin
  Result := nil;
  SetLength(Result, Count);
  for I := 0 to Count - 1 do
    Result[I] := TextAt(Entry, I).Text;
end;

constructor TmlLangTexts.Create;
begin
  inherited Create;
  FUnknownStates := TStringList.Create;
end;

destructor TmlLangTexts.Destroy;
begin
  FUnknownStates.Free;
  inherited Destroy;
end;

procedure TmlLangTexts.Mark(Marks: TmlMarks);
var
  Kind: TStringsType;
  I, Place: Integer;
begin
  for Kind := Low(Kind) to High(Kind) do
    for I := 0 to High(Tables[Kind]) do
      for Place := 1 to High(Tables[Kind][I].Texts) do
        Tables[Kind][I].Texts[Place].Mark := Marks.Take(Kind, Place + 1, Tables[Kind][I].Key);
end;

function ReadLines(Lines: TStrings; const Delimiter: string): TmlTextEntries;
var
  I: Integer;
  Fields: TmlFields;
begin
  Result := nil;
  SetLength(Result, Lines.Count);
  for I := 0 to Lines.Count - 1 do
  begin
    Fields := SplitFields(Lines[I], Delimiter);
    Result[I] := EntryOf(Fields[0], Fields, 1);
    Result[I].Line := Lines[I];
  end;
end;

function ReadItems(Translations: TmlExtendedTranslations): TmlTextEntries;
var
  I, J: Integer;
  Item: TmlExtendedTranslation;
begin
  Result := nil;
  SetLength(Result, Translations.Count);
  for I := 0 to Translations.Count - 1 do
  begin
    Item := TmlExtendedTranslation(Translations.Items[I]);
    Result[I].Key := Item.Component + ':' + Item.&Property;
    SetLength(Result[I].Texts, Item.Values.Count);
    for J := 0 to Item.Values.Count - 1 do
      Result[I].Texts[J].Text := Item.Values[J];
  end;
end;

procedure TmlLangTexts.ReadTables(Lists: TmlTables; States: TStrings; Translations: TmlExtendedTranslations;
  const Delimiter: string);
var
  Kind: TStringsType;
  Marks: TmlMarks;
begin
  for Kind := Low(Kind) to High(Kind) do
    Tables[Kind] := ReadLines(Lists[Kind], Delimiter);
  Extended := ReadItems(Translations);
  Marks := TmlMarks.Create;
  try
    Marks.ReadLines(States, Delimiter);
    FUnknownStates.Assign(Marks.Unknown);
    Mark(Marks);
  finally
    Marks.Free;
  end;
end;

{ A line that says the same stays as it is. }
function LineOf(const Entry: TmlTextEntry; const Delimiter: string): string;
var
  Former, Fields: TmlFields;
  I, Count: Integer;
  IsSame: Boolean;
begin
  Former := SplitFields(Entry.Line, Delimiter);
  Fields := FieldsOf(Entry, Length(Entry.Texts));
  IsSame := Former[0] = Entry.Key;
  Count := Length(Fields);
  if Length(Former) - 1 > Count then Count := Length(Former) - 1;
  for I := 0 to Count - 1 do
    if I > High(Fields) then
      IsSame := False
    else if I > Length(Former) - 2 then
      IsSame := IsSame and (Fields[I] = '')
    else
      IsSame := IsSame and (Fields[I] = Former[I + 1]);
  Result := Entry.Line;
  if IsSame then Exit;
  Insert([Entry.Key], Fields, 0);
  Result := JoinFields(Fields, Delimiter);
end;

procedure AssignChanged(List: TStrings; Lines: TStringList);
begin
  if not Lines.Equals(List) then List.Assign(Lines);
end;

procedure WriteLines(List: TStrings; const Entries: TmlTextEntries; const Delimiter: string);
var
  Lines: TStringList;
  I: Integer;
begin
  Lines := TStringList.Create;
  try
    for I := 0 to High(Entries) do
      Lines.Add(LineOf(Entries[I], Delimiter));
    AssignChanged(List, Lines);
  finally
    Lines.Free;
  end;
end;

procedure WriteItem(Item: TmlExtendedTranslation; const Entry: TmlTextEntry);
var
  Lines: TStringList;
  I: Integer;
begin
  Lines := TStringList.Create;
  try
    for I := 0 to High(Entry.Texts) do
      Lines.Add(Entry.Texts[I].Text);
    AssignChanged(Item.Values, Lines);
  finally
    Lines.Free;
  end;
end;

function StateOf(const Entry: TmlTextEntry; Kind: TStringsType; Place: Integer): TmlFileState;
begin
  Result.Kind := Kind;
  Result.Place := Place + 1;
  Result.Key := Entry.Key;
  Result.State := Entry.Texts[Place].Mark.State;
  Result.Former := Entry.Texts[Place].Mark.Former;
end;

{ In the order of the tables, their entries and the languages; what is no record stays in front. }
procedure TmlLangTexts.WriteTables(Lists: TmlTables; States: TStrings; Translations: TmlExtendedTranslations;
  const Delimiter: string);
var
  Kind: TStringsType;
  Lines: TStringList;
  I, Place: Integer;
begin
  Lines := TStringList.Create;
  try
    Lines.Assign(FUnknownStates);
    for Kind := Low(Kind) to High(Kind) do
    begin
      WriteLines(Lists[Kind], Tables[Kind], Delimiter);
      for I := 0 to High(Tables[Kind]) do
        for Place := 1 to High(Tables[Kind][I].Texts) do
          if Tables[Kind][I].Texts[Place].Mark.State <> '' then
            Lines.Add(MarkLine(StateOf(Tables[Kind][I], Kind, Place), Delimiter));
    end;
    AssignChanged(States, Lines);
  finally
    Lines.Free;
  end;
  for I := 0 to High(Extended) do
    WriteItem(TmlExtendedTranslation(Translations.Items[I]), Extended[I]);
end;

procedure TmlLangTexts.ReadSection(const Section: TmlFormSection);
var
  Kind: TStringsType;
  I: Integer;
  Marks: TmlMarks;
begin
  Languages := Copy(Section.Languages);
  for Kind := Low(Kind) to High(Kind) do
  begin
    SetLength(Tables[Kind], Length(Section.Tables[Kind]));
    for I := 0 to High(Tables[Kind]) do
      Tables[Kind][I] := EntryOf(Section.Tables[Kind][I].Key, Section.Tables[Kind][I].Fields, 0);
  end;
  SetLength(Extended, Length(Section.Extended));
  for I := 0 to High(Extended) do
    Extended[I] := EntryOf(Section.Extended[I].Component + ':' + Section.Extended[I].PropertyName,
      Section.Extended[I].Values, 0);
  Marks := TmlMarks.Create;
  try
    for I := 0 to High(Section.States) do
      Marks.Add(Section.States[I]);
    Mark(Marks);
  finally
    Marks.Free;
  end;
end;

function TmlLangTexts.StatesOf(Kind: TStringsType): Integer;
var
  I, Place: Integer;
begin
  Result := 0;
  for I := 0 to High(Tables[Kind]) do
    for Place := 1 to High(Tables[Kind][I].Texts) do
      if (Place < Length(Languages)) and (Tables[Kind][I].Texts[Place].Mark.State <> '') then Inc(Result);
end;

procedure TmlLangTexts.AddStates(var Section: TmlFormSection; Kind: TStringsType; var Count: Integer);
var
  I, Place: Integer;
begin
  for I := 0 to High(Tables[Kind]) do
    for Place := 1 to High(Tables[Kind][I].Texts) do
      if (Place < Length(Languages)) and (Tables[Kind][I].Texts[Place].Mark.State <> '') then
      begin
        Section.States[Count] := StateOf(Tables[Kind][I], Kind, Place);
        Inc(Count);
      end;
end;

{ Those with a key. }
function FileEntriesOf(const Entries: TmlTextEntries; Languages: Integer): TmlFileEntries;
var
  I, Count: Integer;
begin
  Result := nil;
  SetLength(Result, Length(Entries));
  Count := 0;
  for I := 0 to High(Entries) do
    if Entries[I].Key <> '' then
    begin
      Result[Count].Key := Entries[I].Key;
      Result[Count].Fields := FieldsOf(Entries[I], Languages);
      Inc(Count);
    end;
  SetLength(Result, Count);
end;

function TmlLangTexts.ToSection(const Address: TmlFormAddress): TmlFormSection;
var
  Kind: TStringsType;
  I, Count, Colon: Integer;
begin
  Result := Default(TmlFormSection);
  Result.Address := Address;
  Result.Languages := Copy(Languages);
  Count := 0;
  for Kind := Low(Kind) to High(Kind) do
  begin
    Result.Tables[Kind] := FileEntriesOf(Tables[Kind], Length(Languages));
    SetLength(Result.States, Count + StatesOf(Kind));
    AddStates(Result, Kind, Count);
  end;
  SetLength(Result.Extended, Length(Extended));
  for I := 0 to High(Extended) do
  begin
    Colon := Pos(':', Extended[I].Key);
    Result.Extended[I].Component := Copy(Extended[I].Key, 1, Colon - 1);
    Result.Extended[I].PropertyName := Copy(Extended[I].Key, Colon + 1, MaxInt);
    Result.Extended[I].Values := FieldsOf(Extended[I], Length(Languages));
  end;
end;

procedure MoveEntries(var Entries: TmlTextEntries; const Former: TmlPlaces);
var
  I, Place: Integer;
  Moved: TmlMarkedTexts;
begin
  for I := 0 to High(Entries) do
  begin
    Moved := nil;
    SetLength(Moved, Length(Former));
    for Place := 0 to High(Former) do
      if Former[Place] >= 0 then Moved[Place] := TextAt(Entries[I], Former[Place]);
    if Entries[I].Key <> '' then Entries[I].Texts := Moved;
  end;
end;

procedure TmlLangTexts.Move(const Names: TmlFields; const Former: TmlPlaces);
var
  Kind: TStringsType;
  I: Integer;
  IsMove: Boolean;
begin
  IsMove := Length(Former) <> Length(Languages);
  for I := 0 to High(Former) do
    IsMove := IsMove or (Former[I] <> I);
  Languages := Copy(Names);
  if not IsMove then Exit;
  for Kind := Low(Kind) to High(Kind) do
    MoveEntries(Tables[Kind], Former);
  MoveEntries(Extended, Former);
end;

procedure ClearEntries(var Entries: TmlTextEntries);
var
  I, Place: Integer;
  Empty: TmlMarkedText;
begin
  Empty.Text := '';
  Empty.Mark := NoMark;
  for I := 0 to High(Entries) do
    for Place := 1 to High(Entries[I].Texts) do
      Entries[I].Texts[Place] := Empty;
end;

procedure TmlLangTexts.Clear;
var
  Kind: TStringsType;
begin
  for Kind := Low(Kind) to High(Kind) do
    if Kind <> stLocales then ClearEntries(Tables[Kind]);
  ClearEntries(Extended);
end;

end.

{ The text kind of translation files. }
unit Mllfile;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlfilefields, Mlldocument, Mltables, Mltranslationfile;

type
  TmlNamedColumn = record
    Key, Name: string;
  end;

  TmlPlainValue = function(const Value: string): string;

  TmlSetting = record
    Name, Value: string;
    { What a value means, however it is spelt. }
    Plain: TmlPlainValue;
  end;

  TmllFile = class(TmlTranslationFile)
  private
    FDocument: TmllDocument;
    FVersion: Integer;
    FFields: TmlFileFields;
    FNames: array of TmlNamedColumn;
    function ReadOptions: string;
    procedure ExpectForms;
    procedure ReadNames;
    procedure Use(const Delimiter: string);
    procedure WriteAnew(const Delimiter: string);
    procedure PutSettings(const Section: string; const Settings: array of TmlSetting; const Behind: string);
    procedure WriteOptions;
    function NumberOfColumn(const Key: string): Integer;
    function LastColumn: Integer;
    function ColumnFor(const Language: string; const All: TmlFields; Taken: TStrings): string;
    function ColumnsOf(const Languages: TmlFields): string;
    function ReadEntry(const Line: TmlEntryLine; Count: Integer): TmlFileEntry;
    function ReadLanguages(Head: TmlSection): TmlFields;
    function LanguagesIn(const Columns: string; Line: Integer): TmlFields;
    function ReadTable(Section: TmlSection; Languages: Integer): TmlFileEntries;
    function ReadState(const Line: TmlEntryLine; Languages: Integer; out State: TmlFileState): Boolean;
    procedure ReadStates(Table: TmlSection; var Section: TmlFormSection);
    procedure ReadExtended(Table: TmlSection; var Section: TmlFormSection);
    procedure PutNames;
    procedure PutPart(const Section: TmlFormSection; const Part: string; const Lines: TmlFields; var Last: string);
    function StateLines(const Section: TmlFormSection): TmlFields;
    function ExtendedLines(const Section: TmlFormSection): TmlFields;
  public
    { '' is a new file. Delimiter is that of a new one, or the one that an old one is to have from now on ('' keeps
      it). EmlTranslationFile for a damaged or foreign file. }
    constructor Create(const Bytes, FileName, Delimiter: string);
    destructor Destroy; override;
    function Forms: TmlFormAddresses; override;
    function Languages: TmlFields; override;
    function Read(const Form: TmlFormAddress; out Section: TmlFormSection): Boolean; override;
    procedure Put(const Section: TmlFormSection); override;
    function Bytes: string; override;
  end;

implementation

uses
  StrUtils, SysUtils, Mltext, Mlutf8;

const
  OptionsName = 'Options';
  NamesName = 'Language names - for internal use only!';
  LanguagesName = 'Languages';
  StatesName = 'States';
  ExtendedName = 'ExtendedTranslations';

function AsItIs(const Value: string): string;
begin
  Result := Value;
end;

function SettingOf(const Name, Value: string; Plain: TmlPlainValue): TmlSetting;
begin
  Result.Name := Name;
  Result.Value := Value;
  Result.Plain := Plain;
end;

function SettingIn(const Line: string): TmlSetting;
var
  Equals: Integer;
begin
  Equals := Pos('=', Line);
  if Equals = 0 then Equals := Length(Line) + 1;
  Result := SettingOf(Trim(Copy(Line, 1, Equals - 1)), Trim(Copy(Line, Equals + 1, MaxInt)), AsItIs);
end;

{ The part is '' for the head of the form. False for a section that is no form's. }
function SplitName(const Name: string; out Address: TmlFormAddress; out Part: string): Boolean;
var
  Slash: Integer;
begin
  Slash := Pos('/', Name);
  Result := Slash > 0;
  if not Result then Exit;
  Address.Project := Copy(Name, 1, Slash - 1);
  Address.Form := Copy(Name, Slash + 1, MaxInt);
  Slash := Pos('/', Address.Form);
  Part := '';
  if Slash = 0 then Exit;
  Part := Copy(Address.Form, Slash + 1, MaxInt);
  SetLength(Address.Form, Slash - 1);
end;

function NameOf(const Form: TmlFormAddress): string;
begin
  Result := Form.Project + '/' + Form.Form;
end;

function IsQuote(C: Char): Boolean;
begin
  Result := C = '"';
end;

function Quoted(const Delimiter: string): string;
begin
  Result := Delimiter;
  if (Trim(Result) <> Result) or IsQuote(Result[1]) or IsQuote(Result[Length(Result)]) then Result := '"' + Result + '"';
end;

function Unquoted(const Value: string): string;
begin
  Result := Value;
  if (Length(Value) > 2) and IsQuote(Value[1]) and IsQuote(Value[Length(Value)]) then
    Result := Copy(Value, 2, Length(Value) - 2);
end;

{ Columns as they are written. }
function PlainColumns(const Columns: string): string;
var
  List: TStringList;
begin
  List := TStringList.Create;
  try
    List.CommaText := Columns;
    Result := List.CommaText;
  finally
    List.Free;
  end;
end;

{ -1 for a text that is no number. }
function NumberOf(const Text: string): Integer;
var
  I: Integer;
  Number: Int64;
begin
  Number := 0;
  for I := 1 to Length(Text) do
  begin
    if not (Text[I] in ['0'..'9']) then Number := -1;
    if Number >= 0 then Number := 10 * Number + Ord(Text[I]) - Ord('0');
    if Number > MaxInt then Number := -1;
    if Number < 0 then Break;
  end;
  if Text = '' then Number := -1;
  Result := Number;
end;

{ Cuts the part in front of the first colon off. }
function CutPart(var Key: string): string;
var
  Colon: Integer;
begin
  Colon := Pos(':', Key);
  if Colon = 0 then Colon := Length(Key) + 1;
  Result := Copy(Key, 1, Colon - 1);
  Delete(Key, 1, Colon);
end;

constructor TmllFile.Create(const Bytes, FileName, Delimiter: string);
var
  Named: string;
begin
  inherited Create(FileName);
  FVersion := TranslationFileVersion;
  FDocument := TmllDocument.Create(Bytes, FileName);
  if Bytes = '' then Named := Delimiter else Named := ReadOptions;
  if Named = '' then Use(Delimiter) else Use(Named);
  ReadNames;
  if (Pos(#13, Delimiter) > 0) or (Pos(#10, Delimiter) > 0) or not IsValidUtf8(Delimiter) then
    Refuse(0, 'a delimiter has to stand in one line, as UTF-8', 'Choose another one');
  if (Named = '') and (Bytes <> '') then ExpectForms;
  if (Delimiter <> '') and (Delimiter <> FFields.Delimiter) then WriteAnew(Delimiter);
end;

{ The delimiter of a file that names none may be another one than that of its lines. }
procedure TmllFile.ExpectForms;
var
  Form: TmlFormAddress;
  Section: TmlFormSection;
begin
  if FFields.Delimiter = '' then
    Refuse(FDocument.Find(OptionsName).Number, 'the section "Options" has no delimiter', 'Add the line "Delimiter=..."');
  for Form in Forms do
    Read(Form, Section);
end;

{ Blanks at a line's end are no text, for those of a text are escaped. }
procedure TmllFile.Use(const Delimiter: string);
begin
  FreeAndNil(FFields);
  FFields := TmlFileFields.Create(Delimiter);
  FDocument.BlanksCount := (Delimiter <> '') and (Delimiter[Length(Delimiter)] in [' ', #9]);
end;

destructor TmllFile.Destroy;
begin
  FFields.Free;
  FDocument.Free;
  inherited Destroy;
end;

{ The delimiter; '' where the file names none. }
function TmllFile.ReadOptions: string;
var
  Options: TmlSection;
  Line: TmlEntryLine;
  Setting: TmlSetting;
begin
  Options := FDocument.Find(OptionsName);
  if Options = nil then Refuse(1, 'the section "Options" is missing', 'Choose a translation file (.mll)');
  Result := '';
  FVersion := 0;
  for Line in FDocument.Entries(Options) do
  begin
    Setting := SettingIn(Line.Content);
    if SameIgnoringCase(Setting.Name, 'Version') then FVersion := NumberOf(Setting.Value);
    if SameIgnoringCase(Setting.Name, 'Delimiter') then Result := Unquoted(Setting.Value);
    if FVersion < 0 then Refuse(Line.Number, 'the version is no number', 'Restore the line "Version=1"');
  end;
end;

procedure TmllFile.ReadNames;
var
  Section: TmlSection;
  Lines: TmlEntryLines;
  Setting: TmlSetting;
  I, J: Integer;
begin
  Section := FDocument.Find(NamesName);
  if Section = nil then Exit;
  Lines := FDocument.Entries(Section);
  SetLength(FNames, Length(Lines));
  for I := 0 to High(Lines) do
  begin
    Setting := SettingIn(Lines[I].Content);
    for J := 0 to I - 1 do
      if FNames[J].Key = Setting.Name then
        Refuse(Lines[I].Number, 'a language has the number ' + Setting.Name + ' already', 'Delete one of the two lines');
    FNames[I].Key := Setting.Name;
    FNames[I].Name := Setting.Value;
  end;
end;

function TmllFile.Forms: TmlFormAddresses;
var
  Section: TmlSection;
  Address: TmlFormAddress;
  Part: string;
  Count: Integer;
begin
  Result := nil;
  Count := 0;
  Section := FDocument.First;
  while Section <> nil do
  begin
    if SplitName(Section.Name, Address, Part) and (Part = '') then
    begin
      if Count = Length(Result) then SetLength(Result, 2 * Count + 8);
      Result[Count] := Address;
      Inc(Count);
    end;
    Section := Section.Next;
  end;
  SetLength(Result, Count);
end;

function TmllFile.Languages: TmlFields;
var
  I: Integer;
begin
  Result := nil;
  SetLength(Result, Length(FNames));
  for I := 0 to High(FNames) do
    Result[I] := FNames[I].Name;
end;

function TmllFile.Read(const Form: TmlFormAddress; out Section: TmlFormSection): Boolean;
var
  Head, Table: TmlSection;
  Part: string;
  Kind: TStringsType;
begin
  Section := Default(TmlFormSection);
  Head := FDocument.Find(NameOf(Form));
  Result := Head <> nil;
  if not Result then Exit;
  SplitName(Head.Name, Section.Address, Part);
  Section.Languages := ReadLanguages(Head);
  for Kind := Low(Kind) to High(Kind) do
  begin
    Table := FDocument.Find(NameOf(Form) + '/' + TableName(Kind));
    if Table <> nil then Section.Tables[Kind] := ReadTable(Table, Length(Section.Languages));
  end;
  Table := FDocument.Find(NameOf(Form) + '/' + StatesName);
  if Table <> nil then ReadStates(Table, Section);
  Table := FDocument.Find(NameOf(Form) + '/' + ExtendedName);
  if Table <> nil then ReadExtended(Table, Section);
end;

function TmllFile.NumberOfColumn(const Key: string): Integer;
begin
  Result := High(FNames);
  while (Result >= 0) and (FNames[Result].Key <> Key) do
    Dec(Result);
end;

{ The next of the keys in a list with commas; one in double quotes may hold commas. From is moved behind its comma,
  0 where none follows. }
function NextColumn(const Columns: string; var From: Integer): string;
var
  Quote, Comma: Integer;
begin
  while (From <= Length(Columns)) and (Columns[From] <= ' ') do
    Inc(From);
  Quote := 0;
  if (From <= Length(Columns)) and IsQuote(Columns[From]) then
  begin
    Quote := PosEx('"', Columns, From + 1);
    if Quote = 0 then Quote := Length(Columns) + 1;
    Result := Copy(Columns, From + 1, Quote - From - 1);
    From := Quote;
  end;
  Comma := PosEx(',', Columns, From);
  if Quote = 0 then
    if Comma = 0 then Result := Trim(Copy(Columns, From, MaxInt)) else Result := Trim(Copy(Columns, From, Comma - From));
  From := Comma;
  if Comma > 0 then Inc(From);
end;

function TmllFile.LanguagesIn(const Columns: string; Line: Integer): TmlFields;
var
  Key: string;
  Number, From, I: Integer;
begin
  Result := nil;
  From := Ord(Columns <> '');
  while From > 0 do
  begin
    Key := NextColumn(Columns, From);
    Number := NumberOfColumn(Key);
    if Number < 0 then
      Refuse(Line, 'the file names no language ' + Key, 'Add it to the section "' + NamesName + '"');
    for I := 0 to High(Result) do
      if Result[I] = FNames[Number].Name then
        Refuse(Line, 'the form names the language ' + Result[I] + ' twice', 'Give every column a language of its own');
    SetLength(Result, Length(Result) + 1);
    Result[High(Result)] := FNames[Number].Name;
  end;
end;

function TmllFile.ReadLanguages(Head: TmlSection): TmlFields;
var
  Line: TmlEntryLine;
  Setting: TmlSetting;
begin
  for Line in FDocument.Entries(Head) do
  begin
    Setting := SettingIn(Line.Content);
    if not SameIgnoringCase(Setting.Name, LanguagesName) then Continue;
    Result := LanguagesIn(Setting.Value, Line.Number);
    Exit;
  end;
  Refuse(Head.Number, 'the form names no languages', 'Restore its line "Languages=..."');
  Result := nil;
end;

function TmllFile.ReadEntry(const Line: TmlEntryLine; Count: Integer): TmlFileEntry;
const
  Texts: array[Boolean] of string = ('texts', 'text');
  Are: array[Boolean] of string = ('are', 'is');
begin
  Result := FFields.Read(Line.Content);
  if Result.Fields = nil then
    Refuse(Line.Number, Result.Key + ' has no "=" behind it', 'Put it between the key and its texts');
  if Length(Result.Fields) <> Count then
    Refuse(Line.Number, Format('%s has %d %s where %d %s expected',
      [Result.Key, Length(Result.Fields), Texts[Length(Result.Fields) = 1], Count, Are[Count = 1]]),
      'Put the delimiter ' + FFields.Delimiter + ' between them, and ' + FFields.Mark + 'n for a line break');
end;

function TmllFile.ReadTable(Section: TmlSection; Languages: Integer): TmlFileEntries;
var
  Lines: TmlEntryLines;
  I: Integer;
begin
  Lines := FDocument.Entries(Section);
  Result := nil;
  SetLength(Result, Length(Lines));
  for I := 0 to High(Lines) do
    Result[I] := ReadEntry(Lines[I], Languages);
end;

{ False for a state that only a newer version knows. }
function TmllFile.ReadState(const Line: TmlEntryLine; Languages: Integer; out State: TmlFileState): Boolean;
var
  Entry: TmlFileEntry;
  IsKind: Boolean;
begin
  Entry := FFields.Read(Line.Content);
  SetLength(Entry.Fields, 2);
  IsKind := FindTable(CutPart(Entry.Key), State.Kind);
  State.Place := NumberOf(CutPart(Entry.Key));
  State.Key := Entry.Key;
  State.State := Entry.Fields[0];
  State.Former := Entry.Fields[1];
  Result := StateNumber(State.State) >= 0;
  if not Result and (FVersion > TranslationFileVersion) then Exit;
  if not (Result and IsKind) or (State.Place < 2) or (State.Place > Languages) then
    Refuse(Line.Number, 'this is no state of a translation', 'Delete the line');
end;

procedure TmllFile.ReadStates(Table: TmlSection; var Section: TmlFormSection);
var
  Lines: TmlEntryLines;
  I, Count: Integer;
begin
  Lines := FDocument.Entries(Table);
  SetLength(Section.States, Length(Lines));
  Count := 0;
  for I := 0 to High(Lines) do
    if ReadState(Lines[I], Length(Section.Languages), Section.States[Count]) then Inc(Count);
  SetLength(Section.States, Count);
end;

procedure TmllFile.ReadExtended(Table: TmlSection; var Section: TmlFormSection);
var
  Lines: TmlEntryLines;
  Entry: TmlFileEntry;
  I: Integer;
begin
  Lines := FDocument.Entries(Table);
  SetLength(Section.Extended, Length(Lines));
  for I := 0 to High(Lines) do
  begin
    Entry := ReadEntry(Lines[I], Length(Section.Languages));
    Section.Extended[I].Component := CutPart(Entry.Key);
    Section.Extended[I].PropertyName := Entry.Key;
    Section.Extended[I].Values := Entry.Fields;
  end;
end;

{ Sets what a section says: each setting's lines where they stand, but for such that say so already; a new one behind
  what else there is. }
procedure TmllFile.PutSettings(const Section: string; const Settings: array of TmlSetting; const Behind: string);
var
  Lines: TmlFields;
  IsThere: array of Boolean;
  Present: TmlSection;
  Entry: TmlEntryLine;
  I: Integer;

  procedure Put(const Line: string);
  begin
    SetLength(Lines, Length(Lines) + 1);
    Lines[High(Lines)] := Line;
  end;

  procedure PutEntry(const Line: string);
  var
    Old: TmlSetting;
    J: Integer;
  begin
    Old := SettingIn(Line);
    J := High(Settings);
    while (J >= 0) and not SameIgnoringCase(Settings[J].Name, Old.Name) do
      Dec(J);
    if J >= 0 then IsThere[J] := True;
    if (J < 0) or (Settings[J].Plain(Old.Value) = Settings[J].Plain(Settings[J].Value)) then
      Put(Line)
    else
      Put(Settings[J].Name + '=' + Settings[J].Value);
  end;

begin
  Lines := nil;
  IsThere := nil;
  SetLength(IsThere, Length(Settings));
  Present := FDocument.Find(Section);
  if Present <> nil then
    for Entry in FDocument.Entries(Present) do
      PutEntry(Entry.Content);
  for I := 0 to High(Settings) do
    if not IsThere[I] then Put(Settings[I].Name + '=' + Settings[I].Value);
  FDocument.Put(Section, Lines, Behind);
end;

procedure TmllFile.WriteOptions;
begin
  if FVersion > TranslationFileVersion then RefuseNewer;
  PutSettings(OptionsName, [SettingOf('Version', IntToStr(TranslationFileVersion), AsItIs),
    SettingOf('Delimiter', Quoted(FFields.Delimiter), Unquoted)], '');
end;

{ The largest number of a language, be it that only a form's line names it. }
function TmllFile.LastColumn: Integer;
const
  Largest = 1000000; { who goes beyond has not counted languages }

  procedure Meet(const Key: string);
  begin
    if (NumberOf(Key) < Largest) and (NumberOf(Key) > Result) then Result := NumberOf(Key);
  end;

var
  I, From: Integer;
  Section: TmlSection;
  Address: TmlFormAddress;
  Part: string;
  Line: TmlEntryLine;
  Setting: TmlSetting;
begin
  Result := 0;
  for I := 0 to High(FNames) do
    Meet(FNames[I].Key);
  Section := FDocument.First;
  while Section <> nil do
  begin
    if SplitName(Section.Name, Address, Part) and (Part = '') then
      for Line in FDocument.Entries(Section) do
      begin
        Setting := SettingIn(Line.Content);
        From := Ord((Setting.Value <> '') and SameIgnoringCase(Setting.Name, LanguagesName));
        while From > 0 do
          Meet(NextColumn(Setting.Value, From));
      end;
    Section := Section.Next;
  end;
end;

{ The key of the language, which is added to the file's names where it is new. One that the file spells otherwise is
  that one, unless the form has it, too. }
function TmllFile.ColumnFor(const Language: string; const All: TmlFields; Taken: TStrings): string;

  function IsInForm(const Name: string): Boolean;
  var
    I: Integer;
  begin
    I := High(All);
    while (I >= 0) and (PlainLanguageName(All[I]) <> Name) do
      Dec(I);
    Result := I >= 0;
  end;

var
  I, Found: Integer;
begin
  Found := -1;
  for I := High(FNames) downto 0 do
    if SameIgnoringCase(FNames[I].Name, Language) and not IsInForm(FNames[I].Name) and
      (Taken.IndexOf(FNames[I].Key) < 0) then
      Found := I;
  for I := High(FNames) downto 0 do
    if FNames[I].Name = Language then Found := I;
  if Found < 0 then
  begin
    Result := IntToStr(LastColumn + 1);
    Found := Length(FNames);
    SetLength(FNames, Found + 1);
    FNames[Found].Key := Result;
    FNames[Found].Name := Language;
  end;
  Result := FNames[Found].Key;
end;

function TmllFile.ColumnsOf(const Languages: TmlFields): string;
var
  Columns: TStringList;
  I: Integer;
begin
  Columns := TStringList.Create;
  try
    for I := 0 to High(Languages) do
      Columns.Add(ColumnFor(PlainLanguageName(Languages[I]), Languages, Columns));
    Result := Columns.CommaText;
  finally
    Columns.Free;
  end;
end;

procedure TmllFile.PutPart(const Section: TmlFormSection; const Part: string; const Lines: TmlFields; var Last: string);
var
  Name: string;
begin
  Name := NameOf(Section.Address) + '/' + Part;
  FDocument.Put(Name, Lines, Last);
  if Length(Lines) > 0 then Last := Name;
end;

function LinesOf(Fields: TmlFileFields; const Entries: TmlFileEntries): TmlFields;
var
  I: Integer;
begin
  Result := nil;
  SetLength(Result, Length(Entries));
  for I := 0 to High(Entries) do
    Result[I] := Fields.Write(Entries[I]);
end;

procedure TmllFile.PutNames;
var
  Names: array of TmlSetting;
  I: Integer;
begin
  Names := nil;
  SetLength(Names, Length(FNames));
  for I := 0 to High(FNames) do
    Names[I] := SettingOf(FNames[I].Key, FNames[I].Name, AsItIs);
  PutSettings(NamesName, Names, OptionsName);
end;

procedure TmllFile.Put(const Section: TmlFormSection);
var
  Columns, Last: string;
  Kind: TStringsType;
begin
  WriteOptions;
  Columns := ColumnsOf(Section.Languages);
  PutNames;
  Last := NameOf(Section.Address);
  PutSettings(Last, [SettingOf(LanguagesName, Columns, PlainColumns)], '');
  for Kind := Low(Kind) to High(Kind) do
    PutPart(Section, TableName(Kind), LinesOf(FFields, Section.Tables[Kind]), Last);
  PutPart(Section, StatesName, StateLines(Section), Last);
  PutPart(Section, ExtendedName, ExtendedLines(Section), Last);
end;

function TmllFile.StateLines(const Section: TmlFormSection): TmlFields;
var
  I: Integer;
  State: TmlFileState;
  Entry: TmlFileEntry;
begin
  Result := nil;
  SetLength(Result, Length(Section.States));
  for I := 0 to High(Result) do
  begin
    State := Section.States[I];
    Entry.Key := Format('%s:%d:%s', [TableName(State.Kind), State.Place, State.Key]);
    SetLength(Entry.Fields, 1 + Ord(State.Former <> ''));
    Entry.Fields[0] := State.State;
    if State.Former <> '' then Entry.Fields[1] := State.Former;
    Result[I] := FFields.Write(Entry);
  end;
end;

function TmllFile.ExtendedLines(const Section: TmlFormSection): TmlFields;
var
  I: Integer;
  Entry: TmlFileEntry;
begin
  Result := nil;
  SetLength(Result, Length(Section.Extended));
  for I := 0 to High(Result) do
  begin
    Entry.Key := Section.Extended[I].Component + ':' + Section.Extended[I].PropertyName;
    Entry.Fields := Section.Extended[I].Values;
    Result[I] := FFields.Write(Entry);
  end;
end;

{ With another delimiter; a line that has no "=" has no fields either, and stays. }
procedure TmllFile.WriteAnew(const Delimiter: string);
var
  Anew: TmlFileFields;
  Section: TmlSection;
  Address: TmlFormAddress;
  Part: string;
  Names: TmlFields;
  Lines: array of TmlFields;
  I: Integer;

  procedure AddLines;
  var
    Line: TmlEntryLine;
    Entry: TmlFileEntry;
    Count: Integer;
  begin
    SetLength(Names, Length(Names) + 1);
    Names[High(Names)] := Section.Name;
    SetLength(Lines, Length(Names));
    Count := 0;
    for Line in FDocument.Entries(Section) do
    begin
      Entry := FFields.Read(Line.Content);
      if Count = Length(Lines[High(Lines)]) then SetLength(Lines[High(Lines)], 2 * Count + 8);
      if Entry.Fields = nil then
        Lines[High(Lines), Count] := Line.Content
      else
        Lines[High(Lines), Count] := Anew.Write(Entry);
      Inc(Count);
    end;
    SetLength(Lines[High(Lines)], Count);
  end;

begin
  Names := nil;
  Lines := nil;
  Anew := TmlFileFields.Create(Delimiter);
  try
    Section := FDocument.First;
    while Section <> nil do
    begin
      if SplitName(Section.Name, Address, Part) and (Part <> '') then AddLines;
      Section := Section.Next;
    end;
  finally
    Anew.Free;
  end;
  Use(Delimiter);
  WriteOptions;
  for I := 0 to High(Names) do
    FDocument.Put(Names[I], Lines[I], '');
end;

function TmllFile.Bytes: string;
begin
  Result := FDocument.Bytes;
end;

end.

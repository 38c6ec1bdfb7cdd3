{ The binary kind of translation files: parts with a tag and a size, of which unknown ones are kept. }
unit Mlbfile;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mlfilefields, Mlmap, Mltranslationfile;

type
  TmlFilePart = record
    Tag: Char;
    Payload: string;
    { Of a form's part. }
    Form: TmlFormAddress;
  end;

  TmlbFile = class(TmlTranslationFile)
  private
    FVersion: Integer;
    FLanguages: TmlFields;
    { But for the names. }
    FParts: array of TmlFilePart;
    FCount: Integer;
    FForms: TmlMap;
    FPartOfForm: array of Integer;
    procedure RefuseDamage(const Problem: string);
    procedure ReadFile(const Bytes: string);
    procedure ReadContent(const Content: string);
    procedure ReadNames(const Payload: string);
    procedure AddPart(const Part: TmlFilePart);
    procedure AddForm(var Part: TmlFilePart);
    function ReadForm(const Payload: string): TmlFormSection;
    procedure PutAt(Number: Integer; const Section: TmlFormSection);
    function Payload(const Section: TmlFormSection): string;
    function Content: string;
    function ColumnOf(const Language: string): Integer;
  public
    { '' is a new file. EmlTranslationFile for a damaged or foreign file. }
    constructor Create(const Bytes, FileName: string);
    destructor Destroy; override;
    function Forms: TmlFormAddresses; override;
    function Languages: TmlFields; override;
    function Read(const Form: TmlFormAddress; out Section: TmlFormSection): Boolean; override;
    procedure Put(const Section: TmlFormSection); override;
    function Bytes: string; override;
  end;

implementation

uses
  SysUtils, {$IFDEF FPC}crc{$ELSE}ZLib{$ENDIF}, Mlbytes, Mltables, Mlutf8;

const
  Magic = 'TMLB';
  HeaderSize = 14;
  NamesTag = 'N';
  FormTag = 'F';
  TableTag = 'T';
  StatesTag = 'S';
  ExtendedTag = 'X';

type
  { What a file says is there is not. }
  EmlDamaged = class(Exception)
  end;

  { Takes what a file says is there from the front. }
  TmlTaker = record
    Bytes: string;
    { Of what was taken. }
    Count: Integer;
    procedure Start(const AllBytes: string);
    function AtEnd: Boolean;
    function Take(Size: Int64): string;
    function Number(Size: Integer): Int64;
    function Count32: Integer;
    function Text: string;
    function Name(const Separators: TSysCharSet): string;
    function Texts: TmlFields;
    function Part: TmlFilePart;
    function Kind: TStringsType;
  end;

procedure Damaged;
begin
  raise EmlDamaged.Create('The file names more than it holds');
end;

procedure TmlTaker.Start(const AllBytes: string);
begin
  Bytes := AllBytes;
  Count := 0;
end;

function TmlTaker.AtEnd: Boolean;
begin
  Result := Count = Length(Bytes);
end;

function TmlTaker.Take(Size: Int64): string;
begin
  if Size > Length(Bytes) - Count then Damaged;
  Result := Copy(Bytes, Count + 1, Size);
  Inc(Count, Size);
end;

function TmlTaker.Number(Size: Integer): Int64;
var
  Digits: string;
  I: Integer;
begin
  Digits := Take(Size);
  Result := 0;
  for I := Size downto 1 do
    Result := Result shl 8 or Ord(Digits[I]);
end;

{ So many things that have a size of at least one byte each. }
function TmlTaker.Count32: Integer;
var
  Things: Int64;
begin
  Things := Number(4);
  if Things > Length(Bytes) - Count then Damaged;
  Result := Things;
end;

function TmlTaker.Text: string;
begin
  Result := Take(Number(4));
  if not IsValidUtf8(Result) then Damaged;
end;

{ A name without what the text kind separates names by. }
function TmlTaker.Name(const Separators: TSysCharSet): string;
var
  C: Char;
begin
  Result := Text;
  for C in Result do
    if C in Separators then Damaged;
end;

function TmlTaker.Texts: TmlFields;
var
  I: Integer;
begin
  Result := nil;
  SetLength(Result, Count32);
  for I := 0 to High(Result) do
    Result[I] := Text;
end;

function TmlTaker.Part: TmlFilePart;
begin
  Result.Tag := Take(1)[1];
  Result.Payload := Take(Number(4));
  Result.Form.Project := '';
  Result.Form.Form := '';
end;

function TmlTaker.Kind: TStringsType;
var
  Ordinal: Int64;
begin
  Ordinal := Number(1);
  if Ordinal > Ord(High(TStringsType)) then Damaged;
  Result := TStringsType(Ordinal);
end;

procedure AddTexts(Bytes: TmlBytes; const Texts: TmlFields);
var
  I: Integer;
begin
  Bytes.AddNumber(Length(Texts), 4);
  for I := 0 to High(Texts) do
    Bytes.AddText(Texts[I]);
end;

function KeyOf(const Form: TmlFormAddress): string;
begin
  Result := Form.Project + '/' + Form.Form;
end;

{ As zlib has it. }
function ChecksumOf(const Bytes: string): Cardinal;
begin
  Result := crc32(0, nil, 0);
  if Bytes <> '' then Result := crc32(Result, Pointer(Bytes), Length(Bytes));
end;

constructor TmlbFile.Create(const Bytes, FileName: string);
begin
  inherited Create(FileName);
  FVersion := TranslationFileVersion;
  FForms := TmlMap.Create(0);
  if Bytes <> '' then ReadFile(Bytes);
end;

destructor TmlbFile.Destroy;
begin
  FForms.Free;
  inherited Destroy;
end;

procedure TmlbFile.RefuseDamage(const Problem: string);
begin
  Refuse(0, Problem, 'Fetch the file anew, or save it again');
end;

procedure TmlbFile.ReadFile(const Bytes: string);
var
  Header: TmlTaker;
  Content: string;
  Size: Int64;
begin
  if not StartsAt(Bytes, 1, Magic) or (Length(Bytes) < HeaderSize) then
    Refuse(0, 'the file is no binary translation file', 'Choose a file that was saved with the extension .mlb');
  Header.Start(Copy(Bytes, Length(Magic) + 1, HeaderSize - Length(Magic)));
  Content := Copy(Bytes, HeaderSize + 1, MaxInt);
  FVersion := Header.Number(2);
  if FVersion = 0 then RefuseDamage('the file has no version');
  Size := Header.Number(4);
  if Length(Content) <> Size then
    RefuseDamage(Format('the file has %d bytes of content where %d were saved', [Length(Content), Size]));
  if ChecksumOf(Content) <> Header.Number(4) then
    RefuseDamage('the checksum of the file does not match its content');
  try
    ReadContent(Content);
  except
    on EmlDamaged do RefuseDamage('the file names more than it holds');
  end;
end;

procedure TmlbFile.ReadNames(const Payload: string);
var
  Names: TmlTaker;
  Name: string;
begin
  Names.Start(Payload);
  for Name in Names.Texts do
  begin
    SetLength(FLanguages, Length(FLanguages) + 1);
    FLanguages[High(FLanguages)] := PlainLanguageName(Name);
  end;
end;

procedure TmlbFile.AddPart(const Part: TmlFilePart);
begin
  if FCount = Length(FParts) then SetLength(FParts, 2 * FCount + 8);
  FParts[FCount] := Part;
  Inc(FCount);
end;

procedure TmlbFile.AddForm(var Part: TmlFilePart);
var
  Taker: TmlTaker;
  Number: Integer;
begin
  Taker.Start(Part.Payload);
  Part.Form.Project := Taker.Name(['/', #13, #10]);
  Part.Form.Form := Taker.Name(['/', #13, #10]);
  Number := FForms.Count;
  if FForms.Add(KeyOf(Part.Form)) <> Number then
    RefuseDamage('the form ' + Part.Form.Form + ' stands in the file twice');
  if Number = Length(FPartOfForm) then SetLength(FPartOfForm, 2 * Number + 8);
  FPartOfForm[Number] := FCount;
end;

procedure TmlbFile.ReadContent(const Content: string);
var
  Taker: TmlTaker;
  Part: TmlFilePart;
begin
  Taker.Start(Content);
  while not Taker.AtEnd do
  begin
    Part := Taker.Part;
    if Part.Tag = FormTag then AddForm(Part);
    if Part.Tag = NamesTag then ReadNames(Part.Payload) else AddPart(Part);
  end;
end;

function TmlbFile.Forms: TmlFormAddresses;
var
  I: Integer;
begin
  Result := nil;
  SetLength(Result, FForms.Count);
  for I := 0 to High(Result) do
    Result[I] := FParts[FPartOfForm[I]].Form;
end;

function TmlbFile.Languages: TmlFields;
begin
  Result := Copy(FLanguages);
end;

function TmlbFile.Read(const Form: TmlFormAddress; out Section: TmlFormSection): Boolean;
var
  Number: Integer;
begin
  Section := Default(TmlFormSection);
  Number := FForms.Find(KeyOf(Form));
  Result := Number >= 0;
  if not Result then Exit;
  try
    Section := ReadForm(FParts[FPartOfForm[Number]].Payload);
  except
    on EmlDamaged do RefuseDamage('the form ' + Form.Form + ' names more than it holds');
  end;
end;

{ Tables stand in their order, and only those with entries. }
procedure ReadTable(const Payload: string; var Section: TmlFormSection);
var
  Taker: TmlTaker;
  Kind, Other: TStringsType;
  I: Integer;
begin
  Taker.Start(Payload);
  Kind := Taker.Kind;
  for Other := Kind to High(Other) do
    if Length(Section.Tables[Other]) > 0 then Damaged;
  SetLength(Section.Tables[Kind], Taker.Count32);
  if Length(Section.Tables[Kind]) = 0 then Damaged;
  for I := 0 to High(Section.Tables[Kind]) do
  begin
    Section.Tables[Kind][I].Key := Taker.Text;
    Section.Tables[Kind][I].Fields := Taker.Texts;
  end;
end;

procedure ReadStates(const Payload: string; var Section: TmlFormSection);
var
  Taker: TmlTaker;
  State: TmlFileState;
  Number, Count: Integer;
begin
  Section.States := nil;
  Count := 0;
  Taker.Start(Payload);
  while not Taker.AtEnd do
  begin
    State.Kind := Taker.Kind;
    State.Place := Integer(Taker.Number(4));
    Number := Taker.Number(1);
    State.Key := Taker.Text;
    State.Former := Taker.Text;
    if Number > High(StoredStates) then Continue;
    State.State := StoredStates[Number];
    if Count = Length(Section.States) then SetLength(Section.States, 2 * Count + 8);
    Section.States[Count] := State;
    Inc(Count);
  end;
  SetLength(Section.States, Count);
end;

procedure ReadExtended(const Payload: string; var Section: TmlFormSection);
var
  Taker: TmlTaker;
  Extended: TmlFileExtended;
  Count: Integer;
begin
  Section.Extended := nil;
  Count := 0;
  Taker.Start(Payload);
  while not Taker.AtEnd do
  begin
    Extended.Component := Taker.Name([':']);
    Extended.PropertyName := Taker.Text;
    Extended.Values := Taker.Texts;
    if Count = Length(Section.Extended) then SetLength(Section.Extended, 2 * Count + 8);
    Section.Extended[Count] := Extended;
    Inc(Count);
  end;
  SetLength(Section.Extended, Count);
end;

{ As many texts as languages. }
procedure ExpectColumns(const Section: TmlFormSection);
var
  Kind: TStringsType;
  I, Count: Integer;
begin
  Count := Length(Section.Languages);
  for Kind := Low(Kind) to High(Kind) do
    for I := 0 to High(Section.Tables[Kind]) do
      if Length(Section.Tables[Kind][I].Fields) <> Count then Damaged;
  for I := 0 to High(Section.Extended) do
    if Length(Section.Extended[I].Values) <> Count then Damaged;
  for I := 0 to High(Section.States) do
    if (Section.States[I].Place < 2) or (Section.States[I].Place > Count) then Damaged;
end;

function TmlbFile.ReadForm(const Payload: string): TmlFormSection;
var
  Taker: TmlTaker;
  Part: TmlFilePart;
  I, J: Integer;
  Column: Int64;
begin
  Result := Default(TmlFormSection);
  Taker.Start(Payload);
  Result.Address.Project := Taker.Text;
  Result.Address.Form := Taker.Text;
  SetLength(Result.Languages, Taker.Count32);
  for I := 0 to High(Result.Languages) do
  begin
    Column := Taker.Number(4);
    if (Column < 1) or (Column > Length(FLanguages)) then Damaged;
    for J := 0 to I - 1 do
      if Result.Languages[J] = FLanguages[Column - 1] then Damaged;
    Result.Languages[I] := FLanguages[Column - 1];
  end;
  while not Taker.AtEnd do
  begin
    Part := Taker.Part;
    case Part.Tag of
      TableTag: ReadTable(Part.Payload, Result);
      StatesTag: ReadStates(Part.Payload, Result);
      ExtendedTag: ReadExtended(Part.Payload, Result);
    end;
  end;
  ExpectColumns(Result);
end;

{ What a form holds besides what this version knows. }
function UnknownParts(const Payload: string): string;
var
  Taker: TmlTaker;
  Part: TmlFilePart;
  From: Integer;
begin
  Result := '';
  if Payload = '' then Exit;
  Taker.Start(Payload);
  Taker.Text;
  Taker.Text;
  Taker.Take(4 * Taker.Number(4));
  while not Taker.AtEnd do
  begin
    From := Taker.Count;
    Part := Taker.Part;
    if not (Part.Tag in [TableTag, StatesTag, ExtendedTag]) then
      Result := Result + Copy(Payload, From + 1, Taker.Count - From);
  end;
end;

procedure TmlbFile.PutAt(Number: Integer; const Section: TmlFormSection);
var
  Unknown: string;
begin
  try
    Unknown := UnknownParts(FParts[Number].Payload);
  except
    on EmlDamaged do RefuseDamage('the form ' + FParts[Number].Form.Form + ' names more than it holds');
  end;
  FParts[Number].Payload := Payload(Section) + Unknown;
end;

procedure TmlbFile.Put(const Section: TmlFormSection);
var
  Part: TmlFilePart;
  Number: Integer;
begin
  if FVersion > TranslationFileVersion then RefuseNewer;
  FVersion := TranslationFileVersion;
  Number := FForms.Find(KeyOf(Section.Address));
  if Number >= 0 then
  begin
    PutAt(FPartOfForm[Number], Section);
    Exit;
  end;
  Part.Tag := FormTag;
  Part.Payload := Payload(Section);
  AddForm(Part);
  AddPart(Part);
end;

procedure AddTable(Bytes: TmlBytes; Kind: TStringsType; const Entries: TmlFileEntries);
var
  I: Integer;
begin
  if Length(Entries) = 0 then Exit;
  Bytes.BeginPart(TableTag);
  Bytes.AddNumber(Ord(Kind), 1);
  Bytes.AddNumber(Length(Entries), 4);
  for I := 0 to High(Entries) do
  begin
    Bytes.AddText(Entries[I].Key);
    AddTexts(Bytes, Entries[I].Fields);
  end;
  Bytes.EndPart;
end;

procedure AddStates(Bytes: TmlBytes; const Section: TmlFormSection);
var
  State: TmlFileState;
begin
  if Length(Section.States) = 0 then Exit;
  Bytes.BeginPart(StatesTag);
  for State in Section.States do
  begin
    Bytes.AddNumber(Ord(State.Kind), 1);
    Bytes.AddNumber(State.Place, 4);
    Bytes.AddNumber(StateNumber(State.State), 1);
    Bytes.AddText(State.Key);
    Bytes.AddText(State.Former);
  end;
  Bytes.EndPart;
end;

procedure AddExtended(Bytes: TmlBytes; const Section: TmlFormSection);
var
  Extended: TmlFileExtended;
begin
  if Length(Section.Extended) = 0 then Exit;
  Bytes.BeginPart(ExtendedTag);
  for Extended in Section.Extended do
  begin
    Bytes.AddText(Extended.Component);
    Bytes.AddText(Extended.PropertyName);
    AddTexts(Bytes, Extended.Values);
  end;
  Bytes.EndPart;
end;

function TmlbFile.Payload(const Section: TmlFormSection): string;
var
  I: Integer;
  Kind: TStringsType;
  Bytes: TmlBytes;
begin
  Bytes := TmlBytes.Create;
  Bytes.AddText(Section.Address.Project);
  Bytes.AddText(Section.Address.Form);
  Bytes.AddNumber(Length(Section.Languages), 4);
  for I := 0 to High(Section.Languages) do
    Bytes.AddNumber(ColumnOf(PlainLanguageName(Section.Languages[I])), 4);
  for Kind := Low(Kind) to High(Kind) do
    AddTable(Bytes, Kind, Section.Tables[Kind]);
  AddStates(Bytes, Section);
  AddExtended(Bytes, Section);
  Result := Bytes.Finish;
end;

{ From 1; a language that is new is added. }
function TmlbFile.ColumnOf(const Language: string): Integer;
begin
  for Result := 1 to Length(FLanguages) do
    if FLanguages[Result - 1] = Language then Exit;
  SetLength(FLanguages, Length(FLanguages) + 1);
  FLanguages[High(FLanguages)] := Language;
  Result := Length(FLanguages);
end;

function TmlbFile.Content: string;
var
  Bytes: TmlBytes;
  I: Integer;
begin
  Bytes := TmlBytes.Create;
  Bytes.BeginPart(NamesTag);
  AddTexts(Bytes, FLanguages);
  Bytes.EndPart;
  for I := 0 to FCount - 1 do
  begin
    Bytes.Add(FParts[I].Tag);
    Bytes.AddText(FParts[I].Payload);
  end;
  Result := Bytes.Finish;
end;

function TmlbFile.Bytes: string;
var
  Whole: TmlBytes;
  Held: string;
begin
  Held := Content;
  Whole := TmlBytes.Create;
  Whole.Add(Magic);
  Whole.AddNumber(FVersion, 2);
  Whole.AddNumber(Length(Held), 4);
  Whole.AddNumber(ChecksumOf(Held), 4);
  Whole.Add(Held);
  Result := Whole.Finish;
end;

end.

{ The lines of a text translation file, by sections. A line stays byte for byte until it gets another content; comments
  and blank lines stay in front of the entry that they stand before, and comments right above a heading with that. }
unit Mlldocument;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mlbytes, Mlfilefields, Mlmap;

type
  TmlEntryLine = record
    { Without blanks in front, the line's end, and blanks there that do not count. }
    Content: string;
    { 1-based. }
    Number: Integer;
  end;
  TmlEntryLines = array of TmlEntryLine;

  TmlSection = class
  private
    FName: string;
    { With the comments above it. }
    FHeading: string;
    FNumber, FCount: Integer;
    { Behind the heading; all lines with their ends. }
    FLines: TmlFields;
    FNext: TmlSection;
    procedure Add(const Line: string);
    function CutComments: string;
    procedure AddBytes(Bytes: TmlBytes);
  public
    property Name: string read FName;
    { Of its heading in the file that was read, 1-based. }
    property Number: Integer read FNumber;
    property Next: TmlSection read FNext;
  end;

  TmllDocument = class
  private
    FFileName, FMark, FLineEnd, FPreamble: string;
    FFirst, FLast: TmlSection;
    FNames: TmlMap;
    FByNumber: array of TmlSection;
    FBlanksCount: Boolean;
    function ContentOf(const Line: string): string;
    procedure ReadLine(const Line: string; Number: Integer);
    procedure Refuse(Line: Integer; const Problem, Remedy: string);
    function NewSection(const Name: string): TmlSection;
    function Insert(const Name, Behind: string): TmlSection;
    procedure SetApart(Above: TmlSection);
    procedure Remove(Section: TmlSection);
    procedure Replace(Section: TmlSection; const Entries: TmlFields);
  public
    { EmlTranslationFile, with the line, for bytes that are no UTF-8, a broken heading, a section that stands twice and
      text before the first section. }
    constructor Create(const Bytes, FileName: string);
    destructor Destroy; override;
    { Without regard to case; nil without it. }
    function Find(const Name: string): TmlSection;
    function Entries(Section: TmlSection): TmlEntryLines;
    { Gives a section these entries ("key=value", keys as they are written) in this order, and makes it, with a blank
      line before it, behind the section named (at the end for ''). One without entries goes. }
    procedure Put(const Name: string; const Entries: TmlFields; const Behind: string);
    function Bytes: string;
    property First: TmlSection read FFirst;
    { Whether blanks at a line's end count; if not (as it is at first), an editor may have left them. }
    property BlanksCount: Boolean read FBlanksCount write FBlanksCount;
  end;

implementation

uses
  StrUtils, Mltranslationfile, Mlutf8;

const
  Utf8Mark = #$EF#$BB#$BF;
  Blanks = [' ', #9, #13, #10];

{ Other control characters may be a text's. }
function WithoutBlanks(const Line: string): string;
var
  From, Behind: Integer;
begin
  From := 1;
  while (From <= Length(Line)) and (Line[From] in Blanks) do
    Inc(From);
  Behind := Length(Line) + 1;
  while (Behind > From) and (Line[Behind - 1] in Blanks) do
    Dec(Behind);
  Result := Copy(Line, From, Behind - From);
end;

function IsEntry(const Line: string): Boolean;
var
  Content: string;
begin
  Content := WithoutBlanks(Line);
  Result := (Content <> '') and (Content[1] <> ';');
end;

function KeyOf(const Line: string): string;
begin
  Result := Line;
  if Pos('=', Result) > 0 then SetLength(Result, Pos('=', Result) - 1);
  Result := WithoutBlanks(Result);
end;

function IsEnded(const Line: string): Boolean;
begin
  Result := (Line <> '') and (Line[Length(Line)] = #10);
end;

type
  { Entries with the lines in front of each, by their keys. }
  TmlBlocks = class
  private
    FLines: TmlFields;
    FKeys: TmlMap;
    FCount, FTail: Integer;
    { The lines of a block, the entry last; the next block of the same key; the one of a key to be taken next. }
    FFrom, FLast, FNext, FFirstOf, FLastOf: array of Integer;
    procedure Add(const Key: string; From, Last: Integer);
  public
    constructor Create(const Lines: TmlFields; Count: Integer);
    destructor Destroy; override;
    { False where no block of the key is left. }
    function Take(const Key: string; out From, Last: Integer): Boolean;
    { The first line behind the last entry. }
    property Tail: Integer read FTail;
  end;

constructor TmlBlocks.Create(const Lines: TmlFields; Count: Integer);
var
  I: Integer;
begin
  inherited Create;
  FLines := Lines;
  FKeys := TmlMap.Create(Count, True);
  SetLength(FFrom, Count);
  SetLength(FLast, Count);
  SetLength(FNext, Count);
  SetLength(FFirstOf, Count);
  SetLength(FLastOf, Count);
  for I := 0 to Count - 1 do
    if IsEntry(Lines[I]) then
    begin
      Add(KeyOf(Lines[I]), FTail, I);
      FTail := I + 1;
    end;
end;

destructor TmlBlocks.Destroy;
begin
  FKeys.Free;
  inherited Destroy;
end;

procedure TmlBlocks.Add(const Key: string; From, Last: Integer);
var
  Known, Index: Integer;
begin
  Known := FKeys.Count;
  Index := FKeys.Add(Key);
  FFrom[FCount] := From;
  FLast[FCount] := Last;
  FNext[FCount] := -1;
  if Index = Known then FFirstOf[Index] := FCount else FNext[FLastOf[Index]] := FCount;
  FLastOf[Index] := FCount;
  Inc(FCount);
end;

function TmlBlocks.Take(const Key: string; out From, Last: Integer): Boolean;
var
  Index, Block: Integer;
begin
  From := 0;
  Last := -1;
  Block := -1;
  Index := FKeys.Find(Key);
  if Index >= 0 then Block := FFirstOf[Index];
  Result := Block >= 0;
  if not Result then Exit;
  From := FFrom[Block];
  Last := FLast[Block];
  FFirstOf[Index] := FNext[Block];
end;

procedure TmlSection.Add(const Line: string);
begin
  if FCount = Length(FLines) then SetLength(FLines, 2 * FCount + 8);
  FLines[FCount] := Line;
  Inc(FCount);
end;

{ The comments at the end. }
function TmlSection.CutComments: string;
var
  Kept, I: Integer;
begin
  Kept := FCount;
  while (Kept > 0) and StartsAt(WithoutBlanks(FLines[Kept - 1]), 1, ';') do
    Dec(Kept);
  Result := '';
  for I := Kept to FCount - 1 do
    Result := Result + FLines[I];
  FCount := Kept;
end;

procedure TmlSection.AddBytes(Bytes: TmlBytes);
var
  I: Integer;
begin
  Bytes.Add(FHeading);
  for I := 0 to FCount - 1 do
    Bytes.Add(FLines[I]);
end;

constructor TmllDocument.Create(const Bytes, FileName: string);
var
  From, Behind, Number: Integer;
begin
  inherited Create;
  FFileName := FileName;
  FLineEnd := #10;
  FNames := TmlMap.Create(0);
  if StartsAt(Bytes, 1, Utf8Mark) then FMark := Utf8Mark;
  From := 1 + Length(FMark);
  Number := 1;
  while From <= Length(Bytes) do
  begin
    Behind := PosEx(#10, Bytes, From) + 1;
    if Behind = 1 then Behind := Length(Bytes) + 1;
    if (Number = 1) and (Behind - From > 1) and StartsAt(Bytes, Behind - 2, #13#10) then FLineEnd := #13#10;
    ReadLine(Copy(Bytes, From, Behind - From), Number);
    From := Behind;
    Inc(Number);
  end;
end;

destructor TmllDocument.Destroy;
var
  Section: TmlSection;
begin
  while FFirst <> nil do
  begin
    Section := FFirst;
    FFirst := Section.FNext;
    Section.Free;
  end;
  FNames.Free;
  inherited Destroy;
end;

procedure TmllDocument.Refuse(Line: Integer; const Problem, Remedy: string);
begin
  raise EmlTranslationFile.Create(FFileName, Line, Problem, Remedy);
end;

{ Of a name that was there and went, the number is used again. }
function TmllDocument.NewSection(const Name: string): TmlSection;
var
  Number: Integer;
begin
  Result := TmlSection.Create;
  Result.FName := Name;
  Number := FNames.Add(Name);
  if Number >= Length(FByNumber) then SetLength(FByNumber, 2 * Number + 8);
  FByNumber[Number] := Result;
end;

procedure TmllDocument.ReadLine(const Line: string; Number: Integer);
var
  Content: string;
  Section: TmlSection;
begin
  if IsEnded(Line) and not IsValidUtf8(Line) then
    Refuse(Number, 'the line is no UTF-8', 'Save the file as UTF-8');
  Content := WithoutBlanks(Line);
  if (FLast = nil) and IsEntry(Line) and (Content[1] <> '[') then
    Refuse(Number, 'expected a section in brackets', 'Choose a translation file (.mll)');
  if not IsEnded(Line) then
    Refuse(Number, 'the file ends within this line: it may have been cut off', 'Fetch the file anew, or end the line');
  if StartsAt(Content, 1, '[') then
  begin
    if Content[Length(Content)] <> ']' then
      Refuse(Number, 'expected "]" at the end of the line', 'Complete the heading');
    Content := Copy(Content, 2, Length(Content) - 2);
    if Find(Content) <> nil then
      Refuse(Number, 'the section stands in the file already', 'Join the two, or delete one');
    Section := NewSection(Content);
    Section.FNumber := Number;
    { Comments above the first one are the file's. }
    if FLast <> nil then Section.FHeading := FLast.CutComments;
    Section.FHeading := Section.FHeading + Line;
    if FLast = nil then FFirst := Section else FLast.FNext := Section;
    FLast := Section;
  end
  else if FLast <> nil then
    FLast.Add(Line)
  else
    FPreamble := FPreamble + Line;
end;

function TmllDocument.Find(const Name: string): TmlSection;
var
  Number: Integer;
begin
  Number := FNames.Find(Name);
  if Number < 0 then Result := nil else Result := FByNumber[Number];
end;

function TmllDocument.ContentOf(const Line: string): string;
var
  From, Behind: Integer;
begin
  From := 1;
  while (From <= Length(Line)) and (Line[From] in [' ', #9]) do
    Inc(From);
  Behind := Length(Line) + 1;
  while (Behind > From) and (Line[Behind - 1] in Blanks) and
    not (FBlanksCount and (Line[Behind - 1] in [' ', #9])) do
    Dec(Behind);
  Result := Copy(Line, From, Behind - From);
end;

function TmllDocument.Entries(Section: TmlSection): TmlEntryLines;
var
  I, Found: Integer;
begin
  Result := nil;
  SetLength(Result, Section.FCount);
  Found := 0;
  for I := 0 to Section.FCount - 1 do
    if IsEntry(Section.FLines[I]) then
    begin
      Result[Found].Content := ContentOf(Section.FLines[I]);
      Result[Found].Number := Section.FNumber + 1 + I;
      Inc(Found);
    end;
  SetLength(Result, Found);
end;

procedure TmllDocument.Replace(Section: TmlSection; const Entries: TmlFields);
var
  Old: TmlFields;
  Blocks: TmlBlocks;
  OldCount, From, Last, I: Integer;
  Entry: string;
begin
  Old := Section.FLines;
  OldCount := Section.FCount;
  Section.FLines := nil;
  Section.FCount := 0;
  Blocks := TmlBlocks.Create(Old, OldCount);
  try
    for Entry in Entries do
    begin
      Blocks.Take(KeyOf(Entry), From, Last);
      for I := From to Last - 1 do
        Section.Add(Old[I]);
      if (Last >= 0) and (ContentOf(Old[Last]) = ContentOf(Entry)) then
        Section.Add(Old[Last])
      else
        Section.Add(Entry + FLineEnd);
    end;
    for I := Blocks.Tail to OldCount - 1 do
      Section.Add(Old[I]);
  finally
    Blocks.Free;
  end;
end;

procedure TmllDocument.Put(const Name: string; const Entries: TmlFields; const Behind: string);
var
  Section: TmlSection;
begin
  Section := Find(Name);
  if Length(Entries) = 0 then
  begin
    if Section <> nil then Remove(Section);
    Exit;
  end;
  if Section = nil then Section := Insert(Name, Behind);
  Replace(Section, Entries);
end;

{ By a blank line. }
procedure TmllDocument.SetApart(Above: TmlSection);
var
  Last: string;
begin
  if Above.FCount = 0 then Last := Above.FHeading else Last := Above.FLines[Above.FCount - 1];
  if WithoutBlanks(Last) <> '' then Above.Add(FLineEnd);
end;

function TmllDocument.Insert(const Name, Behind: string): TmlSection;
var
  Above: TmlSection;
begin
  Above := Find(Behind);
  if Above = nil then Above := FLast;
  if Above <> nil then SetApart(Above);
  Result := NewSection(Name);
  Result.FHeading := '[' + Name + ']' + FLineEnd;
  if Above = nil then
  begin
    Result.FNext := FFirst;
    FFirst := Result;
  end
  else
  begin
    Result.FNext := Above.FNext;
    Above.FNext := Result;
  end;
  { One that stands between two others is set apart from the next one as well. }
  if Result.FNext = nil then FLast := Result else Result.Add(FLineEnd);
end;

procedure TmllDocument.Remove(Section: TmlSection);
var
  Above: TmlSection;
begin
  FByNumber[FNames.Find(Section.Name)] := nil;
  Above := nil;
  if Section <> FFirst then
  begin
    Above := FFirst;
    while Above.FNext <> Section do
      Above := Above.FNext;
    Above.FNext := Section.FNext;
  end
  else
    FFirst := Section.FNext;
  if Section = FLast then FLast := Above;
  Section.Free;
end;

function TmllDocument.Bytes: string;
var
  Section: TmlSection;
  All: TmlBytes;
begin
  All := TmlBytes.Create;
  All.Add(FMark);
  All.Add(FPreamble);
  Section := FFirst;
  while Section <> nil do
  begin
    Section.AddBytes(All);
    Section := Section.FNext;
  end;
  Result := All.Finish;
end;

end.

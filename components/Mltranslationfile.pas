{ Translation files of both kinds, as docs/translation-files.md has them: what stands in them, in memory. }
unit Mltranslationfile;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  SysUtils, Mlfilefields, Mltables;

const
  { The version that is written; an older one is brought up to it. }
  TranslationFileVersion = 1;

type
  { A file that cannot be used, or written: "Harbour.mll:12: what is wrong. What to do." }
  EmlTranslationFile = class(Exception)
  private
    FFileName: string;
    FLine: Integer;
  public
    { Line is 1-based, 0 for none. }
    constructor Create(const FileName: string; Line: Integer; const Problem, Remedy: string);
    property FileName: string read FFileName;
    property Line: Integer read FLine;
  end;

  { A form of a project; Project is '' where the file names none. Compared without regard to case. }
  TmlFormAddress = record
    Project, Form: string;
  end;
  TmlFormAddresses = array of TmlFormAddress;

  TmlFileEntries = array of TmlFileEntry;

  { What is recorded of a translation; Place is its language's, from 1. }
  TmlFileState = record
    Kind: TStringsType;
    Place: Integer;
    Key, State, Former: string;
  end;

  TmlFileExtended = record
    Component, PropertyName: string;
    Values: TmlFields;
  end;

  TmlFormSection = record
    Address: TmlFormAddress;
    { Base first. }
    Languages: TmlFields;
    Tables: array[TStringsType] of TmlFileEntries;
    { One of a state that only a newer version knows is passed over. }
    States: array of TmlFileState;
    Extended: array of TmlFileExtended;
  end;

  TmlTranslationFile = class
  private
    FFileName, FOriginal: string;
  protected
    procedure Refuse(Line: Integer; const Problem, Remedy: string);
    procedure RefuseNewer;
    property FileName: string read FFileName;
  public
    constructor Create(const FileName: string);
    { In the order of the file. }
    function Forms: TmlFormAddresses; virtual; abstract;
    { The languages of all forms in the order of their first use. }
    function Languages: TmlFields; virtual; abstract;
    { False when the file does not hold the form. EmlTranslationFile, with the place, for a damaged one. }
    function Read(const Form: TmlFormAddress; out Section: TmlFormSection): Boolean; virtual; abstract;
    { Replaces the form in its place, or adds it at the end; everything else stays as it is. EmlTranslationFile for a
      file of a newer version. }
    procedure Put(const Section: TmlFormSection); virtual; abstract;
    function Bytes: string; virtual; abstract;
    { What the file on disk holds as far as is known; '' for a new one. }
    property Original: string read FOriginal write FOriginal;
  end;

const
  { The states that are stored, in the order of their numbers. }
  StoredStates: array[0..2] of string = ('stale', 'touched', 'same');

{ The number of a stored state, -1 for another. }
function StateNumber(const State: string): Integer;

{ A language's name as files have it: in one line, without blanks and control characters at its ends. }
function PlainLanguageName(const Name: string): string;

{ The form of that project, else the only one of that name whose project is not known on either side. }
function FindForm(TranslationFile: TmlTranslationFile; const Wanted: TmlFormAddress; out Found: TmlFormAddress): Boolean;

implementation

uses
  Mltext;

constructor EmlTranslationFile.Create(const FileName: string; Line: Integer; const Problem, Remedy: string);
begin
  if Line > 0 then
    inherited CreateFmt('%s:%d: %s. %s', [FileName, Line, Problem, Remedy])
  else
    inherited CreateFmt('%s: %s. %s', [FileName, Problem, Remedy]);
  FFileName := FileName;
  FLine := Line;
end;

constructor TmlTranslationFile.Create(const FileName: string);
begin
  inherited Create;
  FFileName := FileName;
end;

procedure TmlTranslationFile.Refuse(Line: Integer; const Problem, Remedy: string);
begin
  raise EmlTranslationFile.Create(FFileName, Line, Problem, Remedy);
end;

procedure TmlTranslationFile.RefuseNewer;
begin
  Refuse(0, 'the file is of a newer version', 'Save into another file, or with a newer program');
end;

function StateNumber(const State: string): Integer;
begin
  Result := High(StoredStates);
  while (Result >= 0) and (StoredStates[Result] <> State) do
    Dec(Result);
end;

function PlainLanguageName(const Name: string): string;
begin
  Result := StringReplace(StringReplace(Trim(Name), #13, ' ', [rfReplaceAll]), #10, ' ', [rfReplaceAll]);
end;

function FindForm(TranslationFile: TmlTranslationFile; const Wanted: TmlFormAddress; out Found: TmlFormAddress): Boolean;
var
  Candidate: TmlFormAddress;
  Candidates: Integer;
begin
  Candidates := 0;
  for Candidate in TranslationFile.Forms do
    if SameIgnoringCase(Candidate.Form, Wanted.Form) then
    begin
      Result := SameIgnoringCase(Candidate.Project, Wanted.Project);
      if Result or (Candidate.Project = '') or (Wanted.Project = '') then Found := Candidate;
      if Result then Exit;
      Inc(Candidates, Ord((Candidate.Project = '') or (Wanted.Project = '')));
    end;
  Result := Candidates = 1;
end;

end.

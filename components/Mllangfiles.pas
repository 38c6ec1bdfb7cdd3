{ What a component does with translation files. }
unit Mllangfiles;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mllangtexts, Mltables, Mltranslationfile;

type
  TmlTableKinds = set of TStringsType;

const
  AllTables = [Low(TStringsType)..High(TStringsType)];

var
  { Whose forms are meant in a file of several projects: the project's file name without folder and extension. Where it
    is '', the program's own name is tried, then a form of the name that only one project has. }
  TranslationProject: string = '';

{ The form of a class as files name it. }
function FormNameOf(FormClass: TClass): string;

{ False where the file holds nothing of the form. }
function ReadForm(const FileName, FormName: string; Texts: TmlLangTexts): Boolean;

{ Delimiter as in OpenTranslationFile; only for the text kind. }
procedure WriteForm(const FileName, Delimiter, FormName: string; Texts: TmlLangTexts);

{ Writes these tables and, if it is so said, the extended translations, and leaves the form's others. }
procedure WriteParts(const FileName, Delimiter, FormName: string; Texts: TmlLangTexts; Kinds: TmlTableKinds;
  Extended: Boolean);

implementation

uses
  SysUtils, Mlcodec, Mlopenfile, Mltransfer;

{ A class begins with a T. }
function FormNameOf(FormClass: TClass): string;
begin
  Result := FormClass.ClassName;
  if (Length(Result) > 1) and (Result[1] in ['T', 't']) then Delete(Result, 1, 1);
end;

{ Found is where the form stands, or is to stand. }
function FindInFile(TranslationFile: TmlTranslationFile; const FormName: string; out Found: TmlFormAddress): Boolean;
var
  Wanted, Anybodys: TmlFormAddress;
begin
  Wanted.Form := FormName;
  Wanted.Project := TranslationProject;
  if Wanted.Project = '' then Wanted.Project := ChangeFileExt(ExtractFileName(ParamStr(0)), '');
  Result := FindForm(TranslationFile, Wanted, Found);
  if Result then Exit;
  Found := Wanted;
  if TranslationProject <> '' then Exit;
  Wanted.Project := '';
  Result := FindForm(TranslationFile, Wanted, Anybodys);
  if Result then Found := Anybodys;
end;

function ReadForm(const FileName, FormName: string; Texts: TmlLangTexts): Boolean;
var
  TranslationFile: TmlTranslationFile;
  Address: TmlFormAddress;
  Section: TmlFormSection;
begin
  TranslationFile := ReadTranslations(FileName);
  try
    Result := FindInFile(TranslationFile, FormName, Address);
    if not Result then Exit;
    TranslationFile.Read(Address, Section);
    Texts.ReadSection(Section);
  finally
    TranslationFile.Free;
  end;
  if Length(Texts.Languages) = 0 then
    raise EmlTranslationFile.Create(FileName, 0, 'the form ' + FormName + ' has no languages there',
      'Save the form into the file again');
end;

{ Languages of both, the first ones' first. }
function JoinedLanguages(const First, Others: TmlFields; out Former: TmlPlaces): TmlFields;
var
  I: Integer;
begin
  Result := Copy(First);
  for I := 0 to High(Others) do
    if PlaceOfLanguage(Result, Others[I]) < 0 then
    begin
      SetLength(Result, Length(Result) + 1);
      Result[High(Result)] := Others[I];
    end;
  Former := nil;
  SetLength(Former, Length(Result));
  for I := 0 to High(Result) do
    Former[I] := PlaceOfLanguage(Others, PlainLanguageName(Result[I]));
end;

{ Gives the texts what the file's form has beside these parts. }
procedure TakeOtherParts(Texts, Theirs: TmlLangTexts; Kinds: TmlTableKinds; Extended: Boolean);
var
  Names: TmlFields;
  Former, Own: TmlPlaces;
  Kind: TStringsType;
  I: Integer;
begin
  Names := JoinedLanguages(Texts.Languages, Theirs.Languages, Former);
  Theirs.Move(Names, Former);
  Own := nil;
  SetLength(Own, Length(Names));
  for I := 0 to High(Own) do
    if I < Length(Texts.Languages) then Own[I] := I else Own[I] := -1;
  Texts.Move(Names, Own);
  for Kind := Low(Kind) to High(Kind) do
    if not (Kind in Kinds) then Texts.Tables[Kind] := Theirs.Tables[Kind];
  if not Extended then Texts.Extended := Theirs.Extended;
end;

procedure TakeFromFile(TranslationFile: TmlTranslationFile; const Address: TmlFormAddress; Texts: TmlLangTexts;
  Kinds: TmlTableKinds; Extended: Boolean);
var
  Theirs: TmlLangTexts;
  Section: TmlFormSection;
begin
  TranslationFile.Read(Address, Section);
  Theirs := TmlLangTexts.Create;
  try
    Theirs.ReadSection(Section);
    TakeOtherParts(Texts, Theirs, Kinds, Extended);
  finally
    Theirs.Free;
  end;
end;

procedure WriteParts(const FileName, Delimiter, FormName: string; Texts: TmlLangTexts; Kinds: TmlTableKinds;
  Extended: Boolean);
var
  TranslationFile: TmlTranslationFile;
  Address: TmlFormAddress;
begin
  TranslationFile := ReadTranslationsToChange(FileName, Delimiter);
  try
    FindInFile(TranslationFile, FormName, Address);
    if not Extended or (Kinds <> AllTables) then TakeFromFile(TranslationFile, Address, Texts, Kinds, Extended);
    TranslationFile.Put(Texts.ToSection(Address));
    WriteTranslations(TranslationFile, FileName);
  finally
    TranslationFile.Free;
  end;
end;

procedure WriteForm(const FileName, Delimiter, FormName: string; Texts: TmlLangTexts);
begin
  WriteParts(FileName, Delimiter, FormName, Texts, AllTables, True);
end;

end.

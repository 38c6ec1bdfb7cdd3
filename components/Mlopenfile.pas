{ Translation files on disk: read whole, and replaced by what they were changed to. }
unit Mlopenfile;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mltranslationfile;

const
  { In bytes. A program holds a file several times over while it changes it, and one of 32 bits has 2 GB for all that it
    holds; the programs that translators use take more. }
  LargestFile = 256 * 1024 * 1024;

{ True for the extension ".mlb" in any case. }
function IsBinaryTranslation(const FileName: string): Boolean;

{ Of either kind, by the extension; no bytes are a new file. Delimiter is that of a new text file, or the one that an
  old one is to have from now on ('' keeps it). The caller frees it. EmlTranslationFile for a damaged or foreign file. }
function OpenTranslationFile(const Bytes, FileName, Delimiter: string): TmlTranslationFile;

{ EmlTranslationFile for a file that is not there, or cannot be read or written. }
function BytesOfFile(const FileName: string): string;
function ReadTranslations(const FileName: string): TmlTranslationFile;
{ A file that is not there is a new one. }
function ReadTranslationsToChange(const FileName, Delimiter: string): TmlTranslationFile;
{ Into the file that it was read from. EmlTranslationFile, too, where another program has saved into it since. }
procedure WriteTranslations(TranslationFile: TmlTranslationFile; const FileName: string);

implementation

uses
  Classes, SysUtils, Mllfile, Mlbfile, Mlstaging, Mltext;

function IsBinaryTranslation(const FileName: string): Boolean;
begin
  Result := SameIgnoringCase(ExtractFileExt(FileName), '.mlb');
end;

function OpenTranslationFile(const Bytes, FileName, Delimiter: string): TmlTranslationFile;
begin
  if IsBinaryTranslation(FileName) then
    Result := TmlbFile.Create(Bytes, FileName)
  else
    Result := TmllFile.Create(Bytes, FileName, Delimiter);
  Result.Original := Bytes;
end;

procedure RefuseFile(const FileName, Problem, Remedy: string);
begin
  raise EmlTranslationFile.Create(FileName, 0, Problem, Remedy);
end;

function BytesOfStream(Stream: TStream; const FileName: string): string;
begin
  if Stream.Size > LargestFile then
    RefuseFile(FileName, Format('the file is larger than %d MB', [LargestFile div (1024 * 1024)]),
      'Save the forms into several files');
  Result := '';
  SetLength(Result, Stream.Size);
  if Result <> '' then Stream.ReadBuffer(Pointer(Result)^, Length(Result));
end;

function BytesOfFile(const FileName: string): string;
var
  Stream: TFileStream;
begin
  if DirectoryExists(FileName) or not FileExists(FileName) then
    RefuseFile(FileName, 'there is no such file', 'Choose a translation file');
  try
    Stream := TFileStream.Create(FileName, fmOpenRead or fmShareDenyNone);
    try
      Result := BytesOfStream(Stream, FileName);
    finally
      Stream.Free;
    end;
  except
    on E: EStreamError do RefuseFile(FileName, 'the file cannot be read', E.Message);
  end;
end;

function ReadTranslations(const FileName: string): TmlTranslationFile;
var
  Bytes: string;
begin
  Bytes := BytesOfFile(FileName);
  if Bytes = '' then RefuseFile(FileName, 'the file is empty', 'Choose a translation file');
  Result := OpenTranslationFile(Bytes, FileName, '');
end;

function BytesIfThere(const FileName: string): string;
begin
  Result := '';
  if FileExists(FileName) then Result := BytesOfFile(FileName);
end;

function ReadTranslationsToChange(const FileName, Delimiter: string): TmlTranslationFile;
begin
  Result := OpenTranslationFile(BytesIfThere(FileName), FileName, Delimiter);
end;

procedure WriteTranslations(TranslationFile: TmlTranslationFile; const FileName: string);
var
  Target, Bytes: string;
  Staged: TmlStagedFile;
begin
  Target := LinkedFile(FileName);
  if FileExists(Target) and FileIsReadOnly(Target) then
    RefuseFile(FileName, 'the file is read-only', 'Make it writable, or save into another file');
  Bytes := TranslationFile.Bytes;
  Staged := TmlStagedFile.Create(Target, Bytes);
  try
    if BytesIfThere(Target) <> TranslationFile.Original then
      RefuseFile(FileName, 'the file has changed since it was read', 'Save again');
    Staged.Install;
  finally
    Staged.Free;
  end;
  TranslationFile.Original := Bytes;
end;

end.

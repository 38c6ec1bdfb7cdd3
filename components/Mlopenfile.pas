{ Translation files on disk: read whole, written beside their place and then put there. }
unit Mlopenfile;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mltranslationfile;

const
  { No file that people have made is larger. }
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
procedure WriteTranslations(TranslationFile: TmlTranslationFile; const FileName: string);

implementation

uses
  Classes, SysUtils, Mllfile, Mlbfile, Mltext;

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
end;

procedure RefuseFile(const FileName, Problem, Remedy: string);
begin
  raise EmlTranslationFile.Create(FileName, 0, Problem, Remedy);
end;

function BytesOfStream(Stream: TStream; const FileName: string): string;
begin
  if Stream.Size > LargestFile then
    RefuseFile(FileName, Format('the file has more than %d MiB', [LargestFile div (1024 * 1024)]), 'Divide it');
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

function ReadTranslationsToChange(const FileName, Delimiter: string): TmlTranslationFile;
var
  Bytes: string;
begin
  Bytes := '';
  if FileExists(FileName) then Bytes := BytesOfFile(FileName);
  Result := OpenTranslationFile(Bytes, FileName, Delimiter);
end;

procedure WriteBytes(const FileName, Bytes: string);
var
  Stream: TFileStream;
begin
  Stream := TFileStream.Create(FileName, fmCreate);
  try
    Stream.WriteBuffer(Pointer(Bytes)^, Length(Bytes));
  finally
    Stream.Free;
  end;
end;

{ The old file stays until the new one is whole. }
procedure WriteTranslations(TranslationFile: TmlTranslationFile; const FileName: string);
var
  Staged: string;
begin
  Staged := FileName + '~';
  if FileExists(FileName) and FileIsReadOnly(FileName) then
    RefuseFile(FileName, 'the file is read-only', 'Make it writable, or save into another file');
  try
    WriteBytes(Staged, TranslationFile.Bytes);
  except
    on E: EStreamError do
    begin
      SysUtils.DeleteFile(Staged);
      RefuseFile(FileName, 'the file cannot be written', E.Message);
    end;
  end;
  {$IFDEF WINDOWS}SysUtils.DeleteFile(FileName);{$ENDIF}
  if not RenameFile(Staged, FileName) then
    RefuseFile(FileName, 'the file cannot be replaced', 'What it was to hold is in ' + Staged);
end;

end.

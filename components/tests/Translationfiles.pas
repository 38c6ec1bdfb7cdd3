{ The same as Translationfiles.cpp, with which it is compared:
  copy FROM TO [DELIMITER]  puts every form of one file into another, which may be new
  damage FILE               tells what becomes of every cut-off file and of every file with a changed byte }
program Translationfiles;

{$MODE Delphi}

uses
  SysUtils, crc, Mlfilefields, Mllangtexts, Mlopenfile, Mltranslationfile;

function ChecksumOf(const Bytes: string): Cardinal;
begin
  Result := crc32(crc32(0, nil, 0), Pointer(Bytes), Length(Bytes));
end;

procedure CopyForms(Source, Target: TmlTranslationFile);
var
  Form: TmlFormAddress;
  Section: TmlFormSection;
  Texts: TmlLangTexts;
begin
  for Form in Source.Forms do
  begin
    Source.Read(Form, Section);
    Texts := TmlLangTexts.Create;
    try
      Texts.ReadSection(Section);
      Target.Put(Texts.ToSection(Form));
    finally
      Texts.Free;
    end;
  end;
end;

procedure CopyFile(const SourceName, TargetName, Delimiter: string);
var
  Source, Target: TmlTranslationFile;
begin
  Source := ReadTranslations(SourceName);
  Target := ReadTranslationsToChange(TargetName, Delimiter);
  try
    CopyForms(Source, Target);
    WriteTranslations(Target, TargetName);
  finally
    Source.Free;
    Target.Free;
  end;
end;

{ What a file becomes when the forms of another one are put into it. }
function Outcome(const SourceBytes, SourceName, TargetBytes, TargetName: string): string;
var
  Source, Target: TmlTranslationFile;
begin
  Source := nil;
  Target := nil;
  try
    try
      Source := OpenTranslationFile(SourceBytes, SourceName, '');
      if TargetBytes = '' then
        Target := OpenTranslationFile('', TargetName, '|')
      else
        Target := OpenTranslationFile(TargetBytes, TargetName, '');
      CopyForms(Source, Target);
      Result := IntToStr(ChecksumOf(Target.Bytes));
    except
      on E: EmlTranslationFile do Result := PChar(E.Message); { up to a NUL, as the other prints it }
    end;
  finally
    Source.Free;
    Target.Free;
  end;
end;

{ The damaged file on its way into a new one, and under the forms of the whole one. }
procedure Tell(Number: Integer; const How, Whole, Damaged, FileName: string);
begin
  WriteLn(Number, ' ', How, ': ', Outcome(Damaged, FileName, '', 'new.mll'));
  WriteLn(Number, ' ', How, ', then saved: ', Outcome(Whole, FileName, Damaged, FileName));
end;

{ A binary file that is damaged so that its checksum does not tell. }
function WithChecksum(const Bytes: string): string;
var
  I: Integer;
begin
  Result := Bytes;
  for I := 0 to 3 do
    Result[11 + I] := Chr(ChecksumOf(Copy(Bytes, 15, MaxInt)) shr (8 * I) and $FF);
end;

procedure Damage(const FileName: string);
var
  Whole, Damaged: string;
  I: Integer;
begin
  Whole := BytesOfFile(FileName);
  for I := 1 to Length(Whole) do
  begin
    Tell(I, 'cut', Whole, Copy(Whole, 1, I), FileName);
    Damaged := Whole;
    Damaged[I] := Chr(Ord(Damaged[I]) xor 1);
    Tell(I, 'changed', Whole, Damaged, FileName);
    if IsBinaryTranslation(FileName) and (I > 14) then
      Tell(I, 'unnoticed', Whole, WithChecksum(Damaged), FileName);
  end;
end;

begin
  SetMultiByteConversionCodePage(CP_UTF8);
  SetTextCodePage(Output, CP_UTF8);
  if ParamStr(1) = 'copy' then CopyFile(ParamStr(2), ParamStr(3), ParamStr(4)) else Damage(ParamStr(2));
end.

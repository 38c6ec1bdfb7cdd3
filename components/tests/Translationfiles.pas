{ The same as Translationfiles.cpp, with which it is compared:
  copy FROM TO [DELIMITER]  puts every form of one file into another, which may be new
  damage FILE               tells what becomes of every cut-off file and of every file with a changed byte }
program Translationfiles;

{$MODE Delphi}

uses
  Classes, SysUtils, crc, Mlfilefields, Mlopenfile, Mltranslationfile;

procedure WriteFile(const FileName, Bytes: string);
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

function ChecksumOf(const Bytes: string): Cardinal;
begin
  Result := crc32(crc32(0, nil, 0), Pointer(Bytes), Length(Bytes));
end;

procedure CopyForms(Source, Target: TmlTranslationFile);
var
  Form: TmlFormAddress;
  Section: TmlFormSection;
begin
  for Form in Source.Forms do
  begin
    Source.Read(Form, Section);
    Target.Put(Section);
  end;
end;

procedure CopyFile(const SourceName, TargetName, Delimiter: string);
var
  Source, Target: TmlTranslationFile;
  Former: string;
begin
  Former := '';
  if FileExists(TargetName) then Former := BytesOfFile(TargetName);
  Source := OpenTranslationFile(BytesOfFile(SourceName), SourceName, '');
  Target := OpenTranslationFile(Former, TargetName, Delimiter);
  try
    CopyForms(Source, Target);
    WriteFile(TargetName, Target.Bytes);
  finally
    Source.Free;
    Target.Free;
  end;
end;

{ What the file becomes when its forms are put back, and when they are put into a new one. }
function Outcome(const Bytes, FileName: string): string;
var
  Source, Target: TmlTranslationFile;
begin
  Source := nil;
  Target := OpenTranslationFile('', 'new.mll', '|');
  try
    try
      Source := OpenTranslationFile(Bytes, FileName, '');
      CopyForms(Source, Target);
      CopyForms(Source, Source);
      Result := Format('%u %u', [ChecksumOf(Source.Bytes), ChecksumOf(Target.Bytes)]);
    except
      on E: EmlTranslationFile do Result := PChar(E.Message); { up to a NUL, as the other prints it }
    end;
  finally
    Source.Free;
    Target.Free;
  end;
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
    WriteLn(I, ' cut: ', Outcome(Copy(Whole, 1, I), FileName));
    Damaged := Whole;
    Damaged[I] := Chr(Ord(Damaged[I]) xor 1);
    WriteLn(I, ' changed: ', Outcome(Damaged, FileName));
    if IsBinaryTranslation(FileName) and (I > 14) then
      WriteLn(I, ' unnoticed: ', Outcome(WithChecksum(Damaged), FileName));
  end;
end;

begin
  SetMultiByteConversionCodePage(CP_UTF8);
  SetTextCodePage(Output, CP_UTF8);
  if ParamStr(1) = 'copy' then CopyFile(ParamStr(2), ParamStr(3), ParamStr(4)) else Damage(ParamStr(2));
end.

{ Texts by their IDs, lines and keys, without anything visible. }
program Testtexts;

{$MODE Delphi}

uses
  CThreads, Classes, SysUtils, Mlcodec, Mlcustomlang, Mldirection, Mlkeys, Mllangdispatcher, Mlmap, Mlproglang, Mltext,
  Mltesting;

type
  { Asks for texts while the main thread changes the language. }
  TAsking = class(TThread)
  private
    FLang: TmlCustomLang;
    FWrong: Integer;
  protected
    procedure Execute; override;
  end;

  TMissing = class
    Names: string;
    procedure Note(Sender: TObject; Kind: TmlMissingKind; const Name: string);
  end;

procedure TMissing.Note(Sender: TObject; Kind: TmlMissingKind; const Name: string);
begin
  Names := Names + Name + ';';
end;

procedure TAsking.Execute;
var
  I: Integer;
  Text: string;
begin
  for I := 0 to 9999 do
  begin
    Text := FLang.GetText('ids_' + IntToStr(I mod 100));
    if (Text <> 'Text ' + IntToStr(I mod 100)) and (Text <> 'Übersetzt ' + IntToStr(I mod 100)) then Inc(FWrong);
    if I mod 100 = 0 then Text := FLang.GetTextC('IDS_' + IntToStr(I mod 100));
  end;
end;

function NewLang: TmlCustomLang;
begin
  Result := TmlCustomLang.Create(nil);
  Result.NumOfLanguages := 3;
  Result.LangNames.CommaText := 'English,German';
end;

procedure TestFields;
type
  TRow = record
    Line, Delimiter: string;
    Place: Integer;
    There: Boolean;
    Field: string;
  end;
const
  Rows: array[0..12] of TRow = (
    (Line: 'a'#1'b'; Delimiter: #1; Place: 1; There: True; Field: 'b'),
    (Line: 'a'#1'b'; Delimiter: #1; Place: 2; There: False; Field: ''),
    (Line: 'a'#1; Delimiter: #1; Place: 1; There: True; Field: ''),
    (Line: ''; Delimiter: #1; Place: 0; There: True; Field: ''),
    (Line: 'a'#1'x'#2'dy'#2'n'#2'r'#2'e'; Delimiter: #1; Place: 1; There: True; Field: 'x'#1'y'#10#13#2),
    (Line: #2; Delimiter: #1; Place: 0; There: True; Field: #2),
    (Line: #2#2'n'; Delimiter: #1; Place: 0; There: True; Field: #2#10),
    (Line: 'x'#2'D'; Delimiter: #1; Place: 0; There: True; Field: 'x'#2'D'),
    (Line: 'xd'#2'Dy'; Delimiter: 'd'; Place: 1; There: True; Field: 'dy'),
    (Line: 'x'#2#3'n'#3'e'; Delimiter: #2; Place: 1; There: True; Field: #10#3),
    (Line: 'a§b'; Delimiter: '§'; Place: 1; There: True; Field: 'b'),
    (Line: 'a|'#2'z|c'; Delimiter: '|'; Place: 1; There: True; Field: #2'z'),
    (Line: 'a'#1'b'#1'c'#1'd'; Delimiter: #1; Place: 3; There: True; Field: 'd'));
var
  Row: TRow;
  Field: string;
begin
  for Row in Rows do
  begin
    Expect(FieldAt(Row.Line, Row.Delimiter, Row.Place, Field) = Row.There, 'field of ' + Row.Line);
    ExpectText(Row.Field, Field, 'field of ' + Row.Line);
    if Row.There and (Row.Line <> 'x'#2'D') then
    begin
      FieldAt(JoinFields([Row.Field, 'z'], Row.Delimiter), Row.Delimiter, 0, Field);
      ExpectText(Row.Field, Field, 'field written and read');
    end;
  end;
  ExpectText('§', DelimiterOf('§|'), 'the first character is the delimiter');
  ExpectText(#1, DelimiterOf(''), 'delimiter where none is named');
end;

procedure TestCase;
begin
  ExpectText('ÄÖÜΣДĀß', UpperText('äöüσдāß'), 'capitals of the same length');
  ExpectText('I', UpperText('i'), 'no Turkish rule');
  ExpectText('A'#$C3, UpperText('a'#$C3), 'a damaged sequence stays');
  Expect(SameIgnoringCase('ids_ä', 'IDS_Ä') and not SameIgnoringCase('ids_ä', 'IDS_A'), 'compared without case');
  Expect(HashOf('ids_ä') = HashOf('IDS_Ä'), 'hash without case');
end;

procedure TestMap;
var
  Map: TmlMap;
  I, Wrong: Integer;
begin
  Map := TmlMap.Create(0);
  Wrong := 0;
  for I := 0 to 9999 do
    if Map.Add('key' + IntToStr(I)) <> I then Inc(Wrong);
  for I := 0 to 9999 do
    if Map.Find('KEY' + IntToStr(I)) <> I then Inc(Wrong);
  Expect((Wrong = 0) and (Map.Find('key10000') = -1) and (Map.Add('Key5') = 5), 'a map that grows');
  Map.Free;
end;

procedure TestKeys;
const
  Wrong: array[0..7] of string = ('', '.', 'a..b', 'a[', 'a[]', 'a]', 'a[0]b', '[0]');
var
  Key: TmlKey;
  Text: string;
begin
  Expect(ParseKey('.Bands[0].Columns[Tide][2].Title', Key) and Key.OfOwner and (Length(Key.Steps) = 3), 'steps of a key');
  ExpectText('Tide', Key.Steps[1].Items[0], 'a named item');
  ExpectText('2', Key.Steps[1].Items[1], 'an item of an item');
  for Text in Wrong do
    Expect(not ParseKey(Text, Key), 'no key: ' + Text);
end;

procedure TestDirection;
const
  RightToLeft: array[0..6] of string = ('ar', 'he-IL', 'fa', 'ku-IQ', 'az-Arab', 'AR-eg', 'pa_Arab_PK');
  LeftToRight: array[0..6] of string = ('', 'en', 'ku', 'ku-TR', 'ar-Latn', 'ur-Latn-PK', 'sr-Cyrl');
var
  Tag: string;
begin
  for Tag in RightToLeft do Expect(IsRightToLeft(Tag), Tag + ' from right to left');
  for Tag in LeftToRight do Expect(not IsRightToLeft(Tag), Tag + ' from left to right');
end;

procedure TestCalls;
var
  Lang: TmlCustomLang;
  Missing: TMissing;
  Kept: PChar;
begin
  Lang := nil;
  ExpectText('IDS_1', Lang.GetText('IDS_1'), 'a component that is not there');
  ExpectText('One', Lang.GetTextOrDefault('IDS_1', 'One'), 'a component that is not there');
  ExpectText('IDS_1', Lang.GetTextC('IDS_1'), 'a component that is not there');
  Lang := NewLang;
  Missing := TMissing.Create;
  Lang.OnMissing := Missing.Note;
  Lang.Strings.Add('IDS_ä'#1'One'#1'Eins'#1#1'more');
  Lang.Strings.Add('ids_Ä'#1'Twice');
  Lang.Strings.Add('');
  Lang.Strings.Add('IDS_2');
  ExpectText('One', Lang.GetText('ids_Ä'), 'IDs are compared without case, the first counts');
  Lang.Language := 'GERMAN';
  ExpectText('German', Lang.Language, 'the name of the language as it is');
  ExpectText('Eins', Lang.GetTextOrDefault('IDS_Ä', 'x'), 'a translation');
  Kept := Lang.GetTextC('IDS_Ä');
  Expect(Lang.GetTextW('IDS_Ä') = UnicodeString('Eins'), 'a wide text');
  Lang.Language := 'Language N3';
  ExpectText('One', Lang.GetText('IDS_Ä'), 'an empty translation shows the base text');
  ExpectText('', Lang.GetText('IDS_2'), 'a line without values');
  ExpectText('d', Lang.GetTextOrDefaultC('IDS_3', 'd'), 'the default of an unknown ID');
  Lang.Language := 'Klingon';
  ExpectText('Language N3', Lang.Language, 'an unknown language changes nothing');
  ExpectText('IDS_3;Klingon;', Missing.Names, 'what is missing is told');
  Lang.Delimiter := '|';
  Lang.Strings.Text := 'A|b|c';
  ExpectText('b', Lang.GetText('a'), 'another delimiter');
  Lang.NumOfLanguages := 2000000000;
  Expect(Lang.NumLang = 10000, 'a damaged number of languages');
  Lang.NumOfLanguages := -1;
  ExpectText('English', Lang.Language, 'a damaged number of languages');
  Lang.Free;
  Missing.Free;
  ExpectText('Eins', Kept, 'a pointer outlives the component');
end;

procedure TestThreads;
var
  Lang: TmlCustomLang;
  Threads: array[0..3] of TAsking;
  I, Wrong: Integer;
begin
  Lang := NewLang;
  for I := 0 to 99 do
    Lang.Strings.Add(Format('IDS_%d'#1'Text %d'#1'Übersetzt %d', [I, I, I]));
  Lang.GetText('IDS_0');
  for I := 0 to High(Threads) do
  begin
    Threads[I] := TAsking.Create(True);
    Threads[I].FLang := Lang;
    Threads[I].Start;
  end;
  for I := 0 to 299 do
    Lang.Language := Lang.LanguageName(1 + I mod 2);
  Wrong := 0;
  for I := 0 to High(Threads) do
  begin
    Threads[I].WaitFor;
    Inc(Wrong, Threads[I].FWrong);
    Threads[I].Free;
  end;
  Expect(Wrong = 0, 'every text is of one of the languages');
  Lang.Free;
end;

procedure TestDispatcher;
var
  Dispatcher: TmlLangDispatcher;
  Lang, Later: TmlCustomLang;
begin
  Dispatcher := TmlLangDispatcher.Create(nil);
  Dispatcher.NumOfLanguages := 2;
  Dispatcher.LangNames.CommaText := 'Base,Other';
  Lang := NewLang;
  Lang.Strings.Add('A'#1'a'#1'b'#1'c');
  Lang.Dispatcher := Dispatcher;
  Dispatcher.Language := 'Other';
  ExpectText('b', Lang.GetText('A'), 'the dispatcher decides, columns by position');
  ExpectText('Other', Lang.Language, 'and names the languages');
  Later := NewLang;
  Later.Strings.Add('A'#1'a'#1'b');
  Later.Dispatcher := Dispatcher;
  ExpectText('b', Later.GetText('A'), 'a component made later takes the language');
  Later.Language := 'Base';
  ExpectText('a', Lang.GetText('A'), 'a linked component changes the language of all');
  Dispatcher.Free;
  ExpectText('English', Lang.Language, 'without the dispatcher its own names hold');
  Lang.Free;
  Later.Free;
end;

{ The next run is this program with a parameter. }
procedure TestProgramLanguage;
var
  Lang: TmlCustomLang;
begin
  RememberLanguage('German');
  Expect(ExecuteProcess(ParamStr(0), ['remembered']) = 0, 'the language that was remembered');
  RememberLanguage('');
  Expect(ExecuteProcess(ParamStr(0), ['remembered']) = 1, 'the language that was forgotten');
  Lang := NewLang;
  SetProgramLanguage('German');
  ExpectText('German', Lang.Language, 'the language of the program');
  SetProgramLanguage('Klingon');
  ExpectText('German', Lang.Language, 'who does not know the language stays');
  SetProgramLanguage('');
  Lang.Free;
end;

begin
  SetMultiByteConversionCodePage(CP_UTF8);
  if ParamStr(1) = 'remembered' then Halt(Ord(ProgramLanguage <> 'German'));
  TestFields;
  TestCase;
  TestMap;
  TestKeys;
  TestDirection;
  TestCalls;
  TestThreads;
  TestDispatcher;
  TestProgramLanguage;
  CloseTests;
end.

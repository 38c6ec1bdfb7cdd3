{ Texts on their way between forms and translation files while the program runs. }
program Testtransfer;

{$MODE Delphi}

uses
  CThreads, BaseUnix, Classes, SysUtils, Interfaces, Forms, StdCtrls, Mlcodec, Mlcustomlang, Mlextended, Mllang, Mllangdispatcher, Mllangfiles, Mlloading,
  Mlopenfile, Mltables, Mltesting, Mlformfiles, Mltranslationfile;

var
  Files: TFormFiles;
  Form: TForm;

const
  Labels = 'object One: TLabel|Caption = ''One''|end|object Two: TLabel|Caption = ''Two''|end';
  Languages = 'NumOfLanguages = 3|LangNames.Strings = (''English'' ''German'' ''Hebrew'')|';
  Tables = 'Captions.Strings = (''.Caption~Base~Basis~'' ''One.Caption~One~Eins~'' ''Two.Caption~Two~Zwei~'' ' +
    '''One.Caption~x~y~z'')|Strings.Strings = (''IDS_0~Ship~Schiff~Ship'')|Locales.Strings = (''.Locale~en~de~he'')|' +
    'States.Strings = (''no state'' ''Captions~One.Caption~2~stale~Won'' ''Strings~IDS_0~3~same~'')|' +
    'ExtendedTranslations = <item|Component = ''One''|Property = ''Hint''|Values.Strings = (''a'' ''b'' '''')|end>|';
  Head = '[Options]'#10'Delimiter=|'#10'[Language names - for internal use only!]'#10'1=English'#10'2=German'#10 +
    '3=French'#10'[P/Form]'#10'Languages=';

function InWork(const Name: string): string;
begin
  Result := GetEnvironmentVariable('HOME') + '/' + Name;
end;

{ Reads a form of these lines; "|" stands for the end of a line, "~" for the delimiter between quotes. }
function Read(const Properties: string): TmlLang;
var
  Text: string;
begin
  Text := 'object Form: TForm|Caption = ''Base''|' + Labels + '|object mlLang: TmlLang|' + Properties + 'end|end';
  Text := StringReplace(StringReplace(Text, '|', #10, [rfReplaceAll]), '~', '''#1''', [rfReplaceAll]);
  Form := TForm.CreateNew(nil);
  Files.Read(Text, Form);
  ApplyLoaded;
  Result := Form.FindComponent('mlLang') as TmlLang;
end;

function Caption(const Name: string): string;
begin
  Result := TLabel(Form.FindComponent(Name)).Caption;
end;

function Shown: string;
begin
  Result := Files.Written(Form, nil, 'TForm');
end;

procedure Done;
begin
  FreeAndNil(Form);
end;

function FileOf(const Text: string): string;
var
  Lines: TStringStream;
begin
  Result := InWork('made.mll');
  Lines := TStringStream.Create(Text);
  Lines.SaveToFile(Result);
  Lines.Free;
end;

procedure TestSaveClearLoad;
var
  Lang: TmlLang;
  Before, Name, First: string;
begin
  for Name in ['a.mll', 'a.MLB'] do
  begin
    Lang := Read(Languages + Tables);
    Before := Shown;
    Lang.SaveAllToFile(InWork(Name), '~!');
    First := BytesOfFile(InWork(Name));
    Lang.SaveAllToFile(InWork(Name), '');
    ExpectText(First, BytesOfFile(InWork(Name)), 'saved twice');
    Lang.ClearTranslations;
    Expect(Shown <> Before, 'cleared');
    Lang.LoadAllFromFile(InWork(Name));
    ExpectText(Before, Shown, 'saved, cleared and loaded');
    ExpectText('', Lang.Report.Text, 'nothing is lost');
    Done;
  end;
end;

procedure TestMerge;
const
  Twice = ' (stands in the file more often than in the form)'#10;
var
  Lang: TmlLang;
begin
  Lang := Read(Languages + Tables);
  Lang.Language := 'German';
  Lang.MergeAllFromFile(FileOf(Head + '1,3,2'#10'[P/Form/Captions]'#10'.Caption=Base|Fond|'#10 +
    'One.Caption=One!|Un|Einzig'#10'Gone.Caption=Gone|Parti|Weg'#10'Two.Caption=Deux|Deux|Zwo'#10'.Caption=Base||'#10 +
    '[P/Form/Strings]'#10'NEW=New|Neuf|Neu'#10'New=New|Nouveau|Neuer'#10));
  ExpectText('added: language French'#10'overwritten: Captions One.Caption (German): Eins'#10 +
    'no place: Captions Gone.Caption'#10'overwritten: Captions Two.Caption (German): Zwei'#10 +
    'no place: Captions .Caption' + Twice + 'added: Strings NEW'#10'no place: Strings New' + Twice, Lang.Report.Text, 'the report of a merge');
  ExpectText('English,German,Hebrew,French', Lang.LangNames.CommaText, 'languages are added');
  ExpectText('Einzig', Caption('One'), 'what is shown follows');
  ExpectText('Neu', Lang.GetText('new'), 'a new ID');
  ExpectText('.Caption'#1'Base'#1'Basis'#1#1'Fond', Lang.Captions[0], 'an empty text replaces nothing');
  ExpectText('no state'#10'Captions'#1'One.Caption'#1'2'#1'touched'#1'One!'#10'Captions'#1'One.Caption'#1'4'#1'touched'#1'One!'#10 +
    'Captions'#1'Two.Caption'#1'2'#1'stale'#1'Deux'#10'Strings'#1'IDS_0'#1'3'#1'same'#1#10, Lang.States.Text,
    'texts for another base text are in doubt');
  Lang.Language := 'French';
  ExpectText('Two', Caption('Two'), 'what equals its base text follows the base text of the form');
  Done;
end;

procedure TestLoadReplaces;
var
  Lang: TmlLang;
begin
  Lang := Read(Languages + Tables);
  Lang.Language := 'Hebrew';
  Lang.LoadAllFromFile(FileOf(Head + '1,3,2'#10'[P/Form/Captions]'#10'One.Caption=One|Un|Eins'#10));
  ExpectText('English,French,German', Lang.LangNames.CommaText, 'the languages of the file');
  ExpectText('English', Lang.Language, 'the active language is gone');
  ExpectText('added: language French'#10'dropped: language Hebrew'#10'dropped: Captions .Caption (German): Basis'#10 +
    'dropped: Captions Two.Caption (German): Zwei'#10'dropped: Captions One.Caption (German): y'#10 +
    'dropped: Strings IDS_0 (German): Schiff'#10'dropped: ExtendedTranslations One:Hint (German): b'#10, Lang.Report.Text,
    'the report of loading');
  Lang.Language := 'German';
  ExpectText('Eins', Caption('One'), 'a text at its new place');
  Done;
end;

{ A component that was put on the form and has no texts of its own. }
procedure TestEmptyComponent;
var
  Lang: TmlLang;
begin
  Lang := Read('');
  Lang.LoadAllFromFile(FileOf(Head + '1,2'#10'[P/Form/Captions]'#10'One.Caption=One|Eins'#10'Two.Caption=Else|Zwei'#10 +
    '[P/Form/Strings]'#10'A=a|b'#10));
  Lang.Language := 'German';
  ExpectText('Eins Two', Caption('One') + ' ' + Caption('Two'), 'a text that the form has, and one that it has not');
  ExpectText('b', Lang.GetText('A'), 'an ID');
  Lang.Language := '';
  ExpectText('One', Caption('One'), 'and back');
  Done;
end;

procedure TestOneLanguage;
var
  Lang, Copied: TmlLang;
  FileName: string;
begin
  FileName := FileOf(Head + '1,3,2'#10'[P/Form/Captions]'#10'One.Caption=One|Un|Anders'#10);
  Lang := Read(Languages + Tables);
  Lang.LoadLanguage(FileName, 'FRENCH');
  ExpectText('One.Caption'#1'One'#1'Eins'#1#1'Un', Lang.Captions[1], 'one language is loaded');
  Lang.LoadLanguage(FileName, 'Klingon');
  ExpectText('nothing: the file has no translations of the form into Klingon'#10, Lang.Report.Text, 'one that is not there');
  Lang.SaveToFile(stStrings, FileName, '');
  Expect(Pos('One.Caption=One|Anders||Un', BytesOfFile(FileName)) > 0, 'the other tables stay, with every language');
  Expect(Pos('IDS_0=Ship|Schiff|Ship|', BytesOfFile(FileName)) > 0, 'one table is saved');
  Copied := TmlLang.Create(Form);
  Copied.ExtendedTranslations := Lang.ExtendedTranslations;
  ExpectText('a'#10'b'#10#10#10, TmlExtendedTranslation(Copied.ExtendedTranslations.Items[0]).Values.Text, 'assigned');
  Lang.SaveExtendedToFile(FileName, ';');
  Expect(Pos('One:Hint=a;b;;', BytesOfFile(FileName)) > 0, 'extended translations, and another delimiter');
  Expect(Pos('One.Caption=One;Anders;;Un', BytesOfFile(FileName)) > 0, 'which every line gets');
  Done;
end;

procedure TestDispatcher;
var
  Lang: TmlLang;
  Dispatcher: TmlLangDispatcher;
begin
  Lang := Read(Tables);
  Dispatcher := TmlLangDispatcher.Create(Form);
  Dispatcher.Name := 'Dispatcher';
  Dispatcher.NumOfLanguages := 3;
  Dispatcher.LangNames.CommaText := 'English,Hebrew,German';
  Lang.Dispatcher := Dispatcher;
  try
    Lang.LoadAllFromFile(FileOf(Head + '1,3'#10));
    Expect(False, 'a language that the dispatcher has not');
  except
    on E: EmlTranslationFile do
      Expect(Pos('linked to the dispatcher Dispatcher, which has no language French', E.Message) > 0, E.Message);
  end;
  Dispatcher.Language := 'German';
  Lang.LoadAllFromFile(FileOf(Head + '1,2'#10'[P/Form/Captions]'#10'One.Caption=One|Ein'#10));
  ExpectText('Ein', Caption('One'), 'columns by the names of the dispatcher');
  Done;
end;

{ The message, and the component as it was. }
procedure ExpectRefused(const FileName, Message: string);
var
  Lang: TmlLang;
  Before: string;
begin
  Lang := Read(Languages + Tables);
  Before := Shown;
  try
    Lang.LoadAllFromFile(FileName);
    Expect(False, 'not refused: ' + Message);
  except
    on E: EmlTranslationFile do ExpectText(FileName + Message, E.Message, 'refused');
  end;
  ExpectText(Before, Shown, 'the component after ' + Message);
  Done;
end;

procedure TestRefused;
var
  Name: string;
  Stream: TFileStream;
begin
  ExpectRefused(FileOf(Head + '1,2'#10'[P/Form/Captions]'#10'One.Caption=One~Eins'#10),
    ':10: One.Caption has 1 text where 2 are expected. Put the delimiter | between them, and \n for a line break');
  ExpectRefused(FileOf(Head + '1,2'#10'[P/Form/Captions]'#10'One.Caption=One|Ei'),
    ':10: the file ends within this line: it may have been cut off. Fetch the file anew, or end the line');
  ExpectRefused(FileOf(Head + '1,4'#10), ':8: the file names no language 4. ' +
    'Add it to the section "Language names - for internal use only!"');
  ExpectRefused(FileOf('object Form: TForm'), ':1: expected a section in brackets. Choose a translation file (.mll)');
  ExpectRefused(FileOf(''), ': the file is empty. Choose a translation file');
  ExpectRefused(FileOf(Head + '2,1'#10), ': the base language of Form is another one there. Give both the same base language');
  ExpectRefused(InWork('gone.mll'), ': there is no such file. Choose a translation file');
  Name := InWork('huge.mlb');
  Stream := TFileStream.Create(Name, fmCreate);
  Stream.Size := Int64(LargestFile) + 1;
  Stream.Free;
  ExpectRefused(Name, ': the file is larger than 256 MB. Save the forms into several files');
  SysUtils.DeleteFile(Name);
end;

procedure TestWriting;
var
  Lang: TmlLang;
  Name, Before: string;
begin
  Lang := Read(Languages + Tables);
  Name := FileOf('[Options]'#10);
  Lang.SaveToFile(stStrings, Name, '!');
  Expect(Pos('IDS_0=Ship!Schiff!Ship', BytesOfFile(Name)) > 0, 'a file that names no delimiter');
  Name := FileOf('[Options]'#10'Version=2'#10'Delimiter=|'#10);
  Before := BytesOfFile(Name);
  try
    Lang.SaveAllToFile(Name, '');
    Expect(False, 'a newer file is not written');
  except
    on E: EmlTranslationFile do ExpectText(Before, BytesOfFile(Name), E.Message);
  end;
  try
    Lang.SaveAllToFile(InWork('no folder/a.mll'), '|');
    Expect(False, 'a folder that is not there');
  except
    on E: EmlTranslationFile do ExpectText(InWork('no folder/: there is no such folder. Make it, or name another one'), E.Message, 'and its remedy');
  end;
  Done;
end;

{ Two projects share a file. }
procedure TestProjects;
var
  Lang: TmlLang;
  Name: string;
begin
  Name := FileOf(Head + '1,2'#10'[P/Form/Captions]'#10'One.Caption=One|Eins'#10'[testtransfer/Form]'#10'Languages=1,2'#10 +
    '[testtransfer/Form/Captions]'#10'One.Caption=One|Mein'#10);
  Lang := Read(Languages);
  Lang.LoadAllFromFile(Name);
  ExpectText('One.Caption'#1'One'#1'Mein', Lang.Captions[0], 'the form of this program');
  TranslationProject := 'p';
  Lang.LoadAllFromFile(Name);
  ExpectText('One.Caption'#1'One'#1'Eins', Lang.Captions[0], 'the form of that project');
  TranslationProject := 'Other';
  Lang.LoadAllFromFile(Name);
  ExpectText('nothing: the file holds nothing of Form'#10, Lang.Report.Text, 'of a project that is not there');
  TranslationProject := '';
  Done;
end;

type
  { Holds the lock of a folder for a while, and then has written the file. }
  TOtherProgram = class(TThread)
  private
    FLock: THandle;
    FName: string;
  protected
    procedure Execute; override;
  public
    constructor Create(const Name: string);
  end;

constructor TOtherProgram.Create(const Name: string);
begin
  FName := Name;
  FLock := FileCreate(ExtractFilePath(Name) + '.tml-lock', fmShareExclusive, &666);
  inherited Create(False);
end;

procedure TOtherProgram.Execute;
begin
  Sleep(200);
  RenameFile(FileOf(Head + '1,2'#10'[P/Form/Captions]'#10'One.Caption=One|Deins'#10), FName);
  FileClose(FLock);
end;

{ What was read is written, when another has written meanwhile. }
procedure ExpectOvertaken(Mine: TmlTranslationFile; const Name, Theirs: string);
begin
  try
    WriteTranslations(Mine, Name);
    Expect(False, 'overwritten: ' + Theirs);
  except
    on E: EmlTranslationFile do
      ExpectText(Name + ': the file has changed since it was read. Save again', E.Message, 'the later one is told');
  end;
  Expect(Pos(Theirs, BytesOfFile(Name)) > 0, 'the earlier one has saved ' + Theirs);
  Mine.Free;
end;

function NamesIn(const Folder: string): string;
var
  Names: TStringList;
  Found: TSearchRec;
  IsThere: Integer;
begin
  Names := TStringList.Create;
  Names.Sorted := True;
  IsThere := FindFirst(Folder + '*', faAnyFile, Found);
  while IsThere = 0 do
  begin
    if (Found.Name <> '.') and (Found.Name <> '..') then Names.Add(Found.Name);
    IsThere := FindNext(Found);
  end;
  SysUtils.FindClose(Found);
  Result := Names.CommaText;
  Names.Free;
end;

procedure TestTwoPrograms;
var
  Lang: TmlLang;
  Mine: TmlTranslationFile;
  Section: TmlFormSection;
  Name: string;
  Other: TOtherProgram;
begin
  Name := InWork('shared/k.mll');
  CreateDir(InWork('shared'));
  Lang := Read(Languages + Tables);
  Mine := ReadTranslationsToChange(Name, '|');
  Lang.SaveAllToFile(Name, '|');
  ExpectOvertaken(Mine, Name, '[testtransfer/Form]');
  Mine := ReadTranslationsToChange(InWork('twice.mll'), '|');
  Section.Address.Form := 'Form';
  Section.Languages := SplitFields('English|German', '|');
  Mine.Put(Section);
  WriteTranslations(Mine, InWork('twice.mll'));
  WriteTranslations(Mine, InWork('twice.mll'));
  Mine.Free;
  Mine := ReadTranslationsToChange(Name, '');
  TranslationProject := 'Other';
  Lang.SaveAllToFile(Name, '');
  TranslationProject := '';
  ExpectOvertaken(Mine, Name, '[Other/Form]');
  Mine := ReadTranslationsToChange(Name, '');
  Other := TOtherProgram.Create(Name);
  ExpectOvertaken(Mine, Name, 'Deins');
  Other.WaitFor;
  Other.Free;
  ExpectText('k.mll', NamesIn(InWork('shared/')), 'locked and staged files go');
  Done;
end;

{ A file that is reached by a link, with an editor's copy beside. }
procedure TestPlaceOfFile;
var
  Lang: TmlLang;
  Link, Copied: string;
  Status: Stat;
begin
  Link := InWork('shared/link.mll');
  Copied := InWork('shared/k.mll~');
  RenameFile(FileOf('Mine'), Copied);
  fpSymlink('k.mll', PChar(Link));
  fpChmod(InWork('shared/k.mll'), &604);
  Lang := Read(Languages + Tables);
  TranslationProject := 'Linked';
  Lang.SaveAllToFile(Link, '');
  Expect(Pos('[Linked/Form]', BytesOfFile(InWork('shared/k.mll'))) > 0, 'saved where the link leads');
  ExpectText('k.mll', fpReadLink(Link), 'the link');
  Expect((fpStat(InWork('shared/k.mll'), Status) = 0) and (Status.st_mode and &777 = &604), 'the mode');
  Lang.SaveAllToFile(InWork('shared/k.mll'), '|');
  ExpectText('Mine', BytesOfFile(Copied), 'what an editor has put beside');
  ExpectText('k.mll,k.mll~,link.mll', NamesIn(InWork('shared/')), 'nothing else');
  try
    Lang.SaveAllToFile(InWork('shared'), '|');
    Expect(False, 'a folder in the place of the file');
  except
    on E: EmlTranslationFile do Expect(Pos('shared: the file cannot be written: ', E.Message) > 0, E.Message);
  end;
  Expect(Pos('.tml-', NamesIn(InWork(''))) = 0, 'what could not be installed goes');
  TranslationProject := '';
  Done;
end;

begin
  Application.Initialize;
  RegisterClasses([TLabel]);
  Files := TFormFiles.Create;
  TestSaveClearLoad;
  TestMerge;
  TestLoadReplaces;
  TestEmptyComponent;
  TestOneLanguage;
  TestDispatcher;
  TestRefused;
  TestWriting;
  TestProjects;
  TestTwoPrograms;
  TestPlaceOfFile;
  Files.Free;
  CloseTests;
end.

{ Translation files that a form takes by itself. }
program Testruntime;

{$MODE Delphi}

uses
  CThreads, Classes, SysUtils, Interfaces, Forms, StdCtrls, Mlcustomlang, Mllangdispatcher, Mllangrt,
  Mllangrtse, Mllanguages, Mlloading, Mltesting, Mlformfiles;

type
  TPerson = class
    Log: string;
    procedure Missing(Sender: TObject; Kind: TmlMissingKind; const Name: string);
    procedure Told(Sender: TObject);
  end;

  TDesignedForm = class(TForm)
  public
    procedure BeDesigned;
  end;

var
  Files: TFormFiles;
  Person: TPerson;
  Form: TDesignedForm;
  Module: TDataModule;

const
  Head = '[Options]'#10'Delimiter=|'#10'[Language names - for internal use only!]'#10'1=English'#10'2=German'#10 +
    '3=Hebrew'#10;
  Texts = '[P/DesignedForm]'#10'Languages=1,2,3'#10'[P/DesignedForm/Captions]'#10'One.Caption=One|Einzig|Ehad'#10;
  Names = 'NumOfLanguages = 3|LangNames.Strings = (''English'' ''German'' ''Hebrew'')|';
  Tables = 'Captions.Strings = (''One.Caption~One~Eins'' ''Two.Caption~Two~Zwei~Shtayim'')|' +
    'Strings.Strings = (''IDS_0~Ship~Schiff'' ''IDS_1~Two''#2''nlines~Zwei''#2''nZeilen'')|' +
    'Fonts.Strings = (''One.Font~~Name=Sans'')|Locales.Strings = (''.Locale~en~de~he'')|';

procedure TDesignedForm.BeDesigned;
begin
  SetDesigning(True);
end;

procedure TPerson.Missing(Sender: TObject; Kind: TmlMissingKind; const Name: string);
begin
  if Kind = mkFile then Log := Log + Name + ';';
end;

procedure TPerson.Told(Sender: TObject);
begin
  Log := Log + 'told ' + TmlCustomLang(Sender).GetText('IDS_0') + ';';
end;

function InFolder(const Name: string): string;
begin
  Result := ExtractFilePath(ParamStr(0)) + Name;
end;

procedure Put(const Name, Text: string);
var
  Stream: TStringStream;
begin
  Stream := TStringStream.Create(Text);
  Stream.SaveToFile(InFolder(Name));
  Stream.Free;
end;

{ Reads a form of these lines; "|" stands for the end of a line, "~" for the delimiter between quotes. }
function Read(const Properties: string; Designed: Boolean = False): TmlLangRTSE;
var
  Text: string;
begin
  Text := 'object Form: TForm|object One: TLabel|Caption = ''One''|end|object Two: TLabel|Caption = ''Two''|end|' +
    'object mlLang: TmlLangRTSE|' + Properties + 'end|end';
  Text := StringReplace(StringReplace(Text, '|', #10, [rfReplaceAll]), '~', '''#1''', [rfReplaceAll]);
  Form := TDesignedForm.CreateNew(nil);
  if Designed then Form.BeDesigned;
  Files.Read(Text, Form);
  Result := Form.FindComponent('mlLang') as TmlLangRTSE;
  Result.OnMissing := Person.Missing;
  Result.OnChangeLanguage := Person.Told;
  Person.Log := '';
  ApplyLoaded;
end;

function Caption(const Name: string): string;
begin
  Result := TLabel(Form.FindComponent(Name)).Caption;
end;

procedure Done;
begin
  FreeAndNil(Form);
end;

procedure TestLoaded;
var
  Lang: TmlLangRTSE;
begin
  Put('a.mll', Head + Texts);
  Lang := Read(Names + Tables + 'FileName = ''a.mll''|Language = ''German''|');
  ExpectText('Einzig Zwei', Caption('One') + ' ' + Caption('Two'), 'the file goes before the form, which keeps the rest');
  ExpectText('overwritten: Captions One.Caption (German): Eins'#10, Lang.Report.Text, 'what was merged');
  Done;
  Lang := Read('FileName = ''' + InFolder('a.mll') + '''|Language = ''German''|');
  ExpectText('Einzig', Caption('One'), 'languages and texts that only the file has');
  Done;
  Lang := Read('FileName = ''a.mll''|', True);
  ExpectText('', Lang.Captions.Text, 'nothing is read in a form designer');
  Done;
end;

{ A form that was saved in German shows what the file says instead. }
procedure TestStreamedLanguage;
var
  Lang: TmlLangRTSE;
begin
  Put('a.mll', Head + Texts);
  Lang := Read(Names + 'Captions.Strings = (''.Caption~~Eins'' ''One.Caption~Uno~One'')|Language = ''German''|FileName = ''a.mll''|');
  ExpectText('Einzig', Caption('One'), 'a property that shows another text than the file''s');
  Lang.Language := '';
  ExpectText('Uno', Caption('One'), 'and the base text');
  Done;
end;

procedure TestUnusable;
var
  Lang: TmlLangRTSE;
begin
  Lang := Read(Names + Tables + 'FileName = ''gone.mll''|');
  ExpectText('', Person.Log + Lang.Report.Text, 'a file that is not there is none');
  Done;
  Put('bad.mll', Head + '[P/DesignedForm]'#10'Languages=1,2'#10'[P/DesignedForm/Captions]'#10'One.Caption=One'#10);
  Lang := Read(Names + Tables + 'FileName = ''bad.mll''|Language = ''German''|');
  Expect(Pos(InFolder('bad.mll') + ':10: One.Caption has 1 text where 2 are expected', Person.Log) = 1, Person.Log);
  Expect(Pos('Eins', Lang.Captions.Text) > 0, 'the form is as it was');
  Put('a.mll', Head + Texts);
  Person.Log := '';
  Lang.FileName := 'a.mll';
  ExpectText('Einzig told Schiff;', Caption('One') + ' ' + Person.Log, 'another name in the running program');
  Person.Log := '';
  Lang.FileName := 'bad.mll';
  Expect(Pos('bad.mll:10:', Person.Log) > 0, 'an unusable one there: ' + Person.Log);
  Done;
end;

function FindModule(const Name: string): TComponent;
begin
  Result := nil;
  if Name = 'Port' then Result := Module;
end;

{ A dispatcher of a module that is read later has the languages, in another order. }
procedure TestLateDispatcher;
var
  Lang: TmlLangRTSE;
begin
  RegisterFindGlobalComponentProc(FindModule);
  Put('a.mll', Head + Texts);
  Lang := Read('Captions.Strings = (''One.Caption~One~Ahat~Eins'' ''Two.Caption~Two~Shtayim~Zwei'')|Dispatcher = Port.dspLang|FileName = ''a.mll''|');
  Module := TDataModule.CreateNew(nil);
  Module.Name := 'Port';
  Files.Read('object Port: TDataModule'#10'object dspLang: TmlLangDispatcher'#10'NumOfLanguages = 3'#10 +
    'LangNames.Strings = (''English'' ''Hebrew'' ''German'')'#10'end'#10'end', Module);
  GlobalFixupReferences;
  Expect(Lang.Dispatcher <> nil, 'the dispatcher has come');
  ExpectText('One.Caption'#1'One'#1'Ehad'#1'Einzig'#10'Two.Caption'#1'Two'#1'Shtayim'#1'Zwei'#10, Lang.Captions.Text,
    'columns by the dispatcher''s names');
  Done;
  FreeAndNil(Module);
end;

begin
  Application.Initialize;
  RegisterClasses([TLabel]);
  Files := TFormFiles.Create;
  Person := TPerson.Create;
  TestLoaded;
  TestStreamedLanguage;
  TestUnusable;
  TestLateDispatcher;
  Person.Free;
  Files.Free;
  CloseTests;
end.

{ Translation files that a form takes by itself, and their editor in the running program. }
program Testruntime;

{$MODE Delphi}

uses
  CThreads, Classes, SysUtils, Interfaces, Controls, ExtCtrls, Forms, Grids, LCLType, StdCtrls, Mlcustomlang, Mllangdispatcher, Mllangrt,
  Mllangrtse, Mllanguages, Mlloading, Mlopenfile, Mltesting, Mlformfiles;

type
  TPerson = class
    Log, Asked: string;
    Answer: Integer;
    Step: procedure(Window: TForm);
    procedure Missing(Sender: TObject; Kind: TmlMissingKind; const Name: string);
    procedure Told(Sender: TObject);
    procedure Act(Sender: TObject);
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
  Others = '[P/Other]'#10'Languages=1,2'#10'[P/Other/Captions]'#10'A.Caption=a|b'#10;
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
function Read(const Properties: string; Designed: Boolean = False; const Parts: string = ''): TmlLangRTSE;
var
  Text: string;
begin
  Text := 'object Form: TForm|object One: TLabel|Caption = ''One''|end|object Two: TLabel|Caption = ''Two''|end|' +
    Parts + 'object mlLang: TmlLangRTSE|' + Properties + 'end|end';
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

{ A form's text for a property of its frame holds over the one that the frame's component takes later. }
procedure TestFrame;
const
  Part = 'object Part: TPart'#10'object Weight: TLabel'#10'Caption = ''Weight'''#10'end'#10'object Unit_: TLabel'#10 +
    'Caption = ''Ton'''#10'end'#10'object Lang: TmlLangRT'#10'NumOfLanguages = 2'#10'LangNames.Strings = (''English'' ''German'')'#10 +
    'Captions.Strings = (''Weight.Caption''#1''Weight''#1''Gewicht'' ''Unit_.Caption''#1''Ton''#1''Tonne'')'#10'end'#10'end'#10;
var
  Cargo: TComponent;
  Lang: TmlLangRTSE;
begin
  Put('a.mll', Head + '[P/Frame]'#10'Languages=1,2'#10'[P/Frame/Captions]'#10'Weight.Caption=Weight|Masse'#10 +
    'Unit_.Caption=Ton|Last'#10);
  Files.AddFrame(Part);
  Lang := Read(Names + 'Captions.Strings = (''Cargo.Weight.Caption~Weight~Fracht'')|', False, 'inline Cargo: TPart|end|');
  Lang.Language := 'German';
  Cargo := Form.FindComponent('Cargo');
  TmlLangRT(Cargo.FindComponent('Lang')).FileName := 'a.mll';
  ExpectText('Fracht Last', TLabel(Cargo.FindComponent('Weight')).Caption + ' ' + TLabel(Cargo.FindComponent('Unit_')).Caption,
    'texts of a frame');
  Done;
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

{ The editor }

procedure TPerson.Act(Sender: TObject);
var
  Window: TForm;
begin
  Window := Screen.ActiveForm;
  if (Window = nil) or (Window.FindComponent('grdTexts') = nil) then Exit;
  TTimer(Sender).Enabled := False;
  Step(Window);
  if Window.ModalResult = mrNone then Window.ModalResult := mrCancel;
end;

function Answered(Text, Caption: PChar; Flags: Longint): Integer;
begin
  Person.Asked := Person.Asked + Text + ';';
  Result := Person.Answer;
end;

{ What EditTranslations gives when somebody does these steps. }
function Edited(Lang: TmlLangRTSE; const Language: string; Step: Pointer): Boolean;
var
  Timer: TTimer;
begin
  Person.Asked := '';
  @Person.Step := Step;
  Timer := TTimer.Create(nil);
  try
    Timer.Interval := 50;
    Timer.OnTimer := Person.Act;
    Result := Lang.EditTranslations(Language);
  finally
    Timer.Free;
  end;
end;

function Grid(Window: TForm): TStringGrid;
begin
  Result := Window.FindComponent('grdTexts') as TStringGrid;
end;

function Memo(Window: TForm): TMemo;
begin
  Result := Window.FindComponent('memText') as TMemo;
end;

procedure Write(Window: TForm; Column, Row: Integer; const Text: string);
begin
  Grid(Window).Col := Column;
  Grid(Window).Row := Row;
  Memo(Window).Text := Text;
end;

procedure TypeIn(Window: TForm; const Text: string);
begin
  Grid(Window).EditorMode := True;
  (Grid(Window).Editor as TCustomEdit).Text := Text;
  Grid(Window).EditorMode := False;
end;

procedure Press(Window: TForm; const Button: string);
begin
  (Window.FindComponent(Button) as TButton).Click;
end;

procedure LookAndWrite(Window: TForm);
begin
  ExpectText('Key,English,German,Hebrew', Grid(Window).Rows[0].CommaText, 'the columns');
  ExpectText('One.Caption,Two.Caption,IDS_0,IDS_1', Copy(Grid(Window).Cols[0].CommaText, 5, MaxInt), 'texts, no settings');
  Expect(Grid(Window).Col = 2, 'the active language');
  Grid(Window).Row := 4;
  ExpectText('Zwei'#10'Zeilen', Memo(Window).Text, 'line breaks are shown below');
  ExpectText('Two'#10'lines', (Window.FindComponent('memBase') as TMemo).Text, 'beside the base text');
  Grid(Window).EditorMode := True;
  Expect(not Grid(Window).EditorMode, 'and are not edited in the grid');
  Memo(Window).Text := 'Zwei'#10'Reihen';
  Grid(Window).Row := 1;
  TypeIn(Window, 'Erste');
  ExpectText('Erste', Memo(Window).Text, 'typed into the grid');
  Expect((Memo(Window).BiDiMode = bdLeftToRight), 'from the left');
  (Window.FindComponent('edtFilter') as TEdit).Text := 'none';
  ExpectText('', Memo(Window).Text, 'nothing is found');
  (Window.FindComponent('edtFilter') as TEdit).Text := 'iDs_0';
  ExpectText('Schiff', Memo(Window).Text, 'a key is found');
  Expect(Grid(Window).RowCount = 2, 'filtered');
  Write(Window, 3, 1, 'Sfina');
  Expect(Memo(Window).BiDiMode = bdRightToLeft, 'from the right');
  Press(Window, 'btnOK');
end;

procedure TestEdited;
var
  Lang: TmlLangRTSE;
begin
  Put('a.mll', Head + Others);
  Lang := Read(Names + Tables + 'FileName = ''a.mll''|');
  Lang.Language := 'German';
  Person.Log := '';
  Expect(Edited(Lang, '', @LookAndWrite), 'changed');
  ExpectText('Erste told Schiff;', Caption('One') + ' ' + Person.Log, 'shown at once');
  ExpectText('Zwei'#10'Reihen', Lang.GetText('IDS_1'), 'a text by its ID');
  Expect(Pos('A.Caption=a|b', BytesOfFile(InFolder('a.mll'))) > 0, 'other forms stay in the file');
  Done;
  Lang := Read(Names + Tables + 'FileName = ''a.mll''|Language = ''Hebrew''|');
  ExpectText('Sfina', Lang.GetText('IDS_0'), 'it is there in the next run');
  Done;
end;

procedure WriteAndRefuse(Window: TForm);
begin
  Expect(Grid(Window).Col = 3, 'the language that was asked for');
  Write(Window, 2, 1, 'Other');
  Person.Answer := IDNO;
  Window.ModalResult := mrCancel;
  Expect(not Window.CloseQuery, 'the changes are not given up');
  Window.ModalResult := mrNone;
  Press(Window, 'btnOK');
  Expect(Window.ModalResult = mrNone, 'what cannot be saved leaves the window open');
  Person.Answer := IDYES;
end;

procedure WriteAndTakeBack(Window: TForm);
begin
  Write(Window, 2, 1, 'Other');
  Write(Window, 2, 1, 'Eins');
  Person.Answer := IDNO;
end;

procedure TestGivenUp;
var
  Lang: TmlLangRTSE;
  Before: string;
begin
  Lang := Read(Names + Tables + 'FileName = ''no folder/a.mll''|');
  Before := Files.Written(Form, nil, 'TForm');
  Expect(not Edited(Lang, 'hebrew', @WriteAndRefuse), 'given up');
  Expect(Pos('Give up the changes?;' + InFolder('no folder/') + ': there is no such folder', Person.Asked) = 1, Person.Asked);
  ExpectText('Give up the changes?;', Copy(Person.Asked, Length(Person.Asked) - 20, MaxInt), 'asked again');
  ExpectText(Before, Files.Written(Form, nil, 'TForm'), 'everything is as it was');
  Expect(not Edited(Lang, '', @WriteAndTakeBack) and (Person.Asked = ''), 'nothing was changed: ' + Person.Asked);
  Done;
end;

{ A translation that becomes the base text goes on being one, in a file of its own. }
procedure WriteBase(Window: TForm);
begin
  Write(Window, 2, 1, 'One');
  Press(Window, 'btnOK');
end;

procedure TestNewFile;
var
  Lang: TmlLangRTSE;
begin
  SysUtils.DeleteFile(InFolder('new.mll'));
  Lang := Read(Names + Tables + 'FileName = ''new.mll''|Language = ''German''|');
  Expect(Edited(Lang, '', @WriteBase), 'changed');
  ExpectText('Captions'#1'One.Caption'#1'2'#1'same'#1#10, Lang.States.Text, 'on purpose');
  Done;
  Lang := Read(Names + Tables + 'FileName = ''new.mll''|Language = ''German''|');
  ExpectText('One', Caption('One'), 'in the next run, too');
  Done;
end;

begin
  Application.Initialize;
  Forms.MessageBoxFunction := Answered;
  RegisterClasses([TLabel]);
  Files := TFormFiles.Create;
  Person := TPerson.Create;
  TestLoaded;
  TestStreamedLanguage;
  TestUnusable;
  TestFrame;
  TestLateDispatcher;
  TestEdited;
  TestGivenUp;
  TestNewFile;
  Person.Free;
  Files.Free;
  CloseTests;
end.

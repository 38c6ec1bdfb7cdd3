{ Components as a form designer and as forms have them. }
program Testdesign;

{$MODE Delphi}

uses
  CThreads, Classes, SysUtils, TypInfo, Interfaces, ActnList, Forms, Graphics, PropEdits, StdCtrls, Mlcustomlang, Mlformstorage, Mllabel,
  Mllang, Mllangactions, Mllangcombo, Mllangdispatcher, Mlloading, Mlproglang, Mlreg, Mldialog_reg, Mltesting, Mlformfiles;

type
  TDesignedForm = class(TForm)
  public
    procedure BeDesigned;
  end;

  TChoosing = class(TmlLangCombo)
  end;

  TNames = class
    Text: string;
    procedure Add(const Name: string);
  end;

var
  Files: TFormFiles;
  Form: TDesignedForm;
  Registered: string;

const
  FormText = 'object Form: TForm|Left = 300|Height = 240|Top = 250|Width = 320|Caption = ''Base''|ClientHeight = 240|' +
    'ClientWidth = 320|LCLVersion = ''2.2.6.0''|' +
    'object lblShip: TmlLabel|Left = 0|Height = 20|Top = 0|Width = 40|AutoSize = False|ParentColor = False|Lang = mlLang|TextID = ''IDS_0''|end|' +
    'object cmbLanguage: TmlLangCombo|Left = 0|Height = 25|Top = 0|Width = 100|ItemHeight = 0|TabOrder = 0|' +
    'LanguageInfos = <    |item|Language = ''German''|DisplayText = ''Deutsch''|Font.Name = ''Sans''|ImageIndex = 1|end    |' +
    'item|Language = ''English''|end>|Languages = mlLang|end|' +
    'object edtName: TEdit|Left = 0|Height = 25|Top = 0|Width = 80|AutoSize = False|TabOrder = 1|Text = ''Anna''|end|' +
    'object dspLang: TmlLangDispatcher|NumOfLanguages = 2|Language = ''Language N2''|Left = 8|Top = 8|end|' +
    'object mlLang: TmlLang|NumOfLanguages = 2|LangNames.Strings = (|''English''|''German''|)|Language = ''German''|' +
    'Captions.Strings = (|''.Caption~Base~Basis''|)|Strings.Strings = (|''IDS_0~Ship~Schiff''|)|Left = 8|Top = 8|end|' +
    'object stgForm: TmlFormStorage|StoredProperties.Strings = (|''.Caption''|''edtName.Text''|)|Left = 8|Top = 8|end|' +
    'object actGerman: TmlLangChangeLanguage|Caption = ''German''|Language = ''German''|Languages = mlLang|end|end|';

procedure TDesignedForm.BeDesigned;
begin
  SetDesigning(True);
end;

procedure TNames.Add(const Name: string);
begin
  Text := Text + Name + ';';
end;

function Part(const Name: string): TComponent;
begin
  Result := Form.FindComponent(Name);
end;

{ Blanks in front of lines tell nothing. }
function Bare(const Text: string): string;
var
  Lines: TStringList;
  I: Integer;
begin
  Lines := TStringList.Create;
  Lines.Text := Text;
  for I := 0 to Lines.Count - 1 do
    Lines[I] := TrimLeft(Lines[I]);
  Result := Lines.Text;
  Lines.Free;
end;

procedure Open(Designed: Boolean);
var
  Text: string;
begin
  Text := StringReplace(StringReplace(FormText, '|', #10, [rfReplaceAll]), '~', '''#1''', [rfReplaceAll]);
  Form := TDesignedForm.CreateNew(nil);
  Form.Name := 'Form';
  if Designed then Form.BeDesigned;
  Files.Read(Text, Form);
  ApplyLoaded;
end;

procedure TestDesigned;
var
  Written: string;
begin
  SetProgramLanguage('English');
  Open(True);
  Expect(csDesigning in Part('mlLang').ComponentState, 'a designer''s component');
  Written := Bare(Files.Written(Form, nil, 'TForm'));
  ExpectText(Bare(StringReplace(StringReplace(FormText, '|', #10, [rfReplaceAll]), '~', '''#1''', [rfReplaceAll])), Written,
    'a form read and written while it is designed');
  ExpectText('Base', Form.Caption, 'no language is applied');
  ExpectText('German', TmlLang(Part('mlLang')).Language, 'a language is the form''s, not the program''s');
  TmlLang(Part('mlLang')).Language := 'English';
  Expect(Pos('Language = ''English''', Files.Written(Form, nil, 'TForm')) > 0, 'it is stored as it was chosen');
  TmlLangChangeLanguage(Part('actGerman')).Execute;
  ExpectText('English', TmlLang(Part('mlLang')).Language, 'an action does nothing');
  FreeAndNil(Form);
  Expect(not FileExists(GetAppConfigDir(False) + 'forms.ini'), 'nothing is stored');
  SetProgramLanguage('');
end;

procedure TestRunning;
var
  Lang: TmlLang;
  Combo: TChoosing;
  Copied: TmlLangCombo;
  Action: TmlLangChangeLanguage;
  Info: TLanguageInfo;
begin
  Open(False);
  Lang := TmlLang(Part('mlLang'));
  Combo := TChoosing(Part('cmbLanguage'));
  Action := TmlLangChangeLanguage(Part('actGerman'));
  ExpectText('English;Deutsch;1', Format('%s;%s;%d', [Combo.Items[0], Combo.Items[1], Combo.ItemIndex]), 'a list of languages');
  ExpectText('Schiff', TmlLabel(Part('lblShip')).Caption, 'a label shows a text by its ID');
  Combo.ItemIndex := 0;
  Combo.Select;
  ExpectText('English Ship', Lang.Language + ' ' + TmlLabel(Part('lblShip')).Caption, 'chosen from the list');
  Action.Update;
  Expect(not Action.Checked, 'another language than the action''s');
  Expect(Action.Execute and Action.Checked, 'the action changes the language');
  ExpectText('Schiff 1', Format('%s %d', [TmlLabel(Part('lblShip')).Caption, Combo.ItemIndex]), 'all follow');
  Lang.LangNames[1] := 'Deutsch';
  Combo.DropDown;
  ExpectText('Deutsch', Combo.Items[1], 'a name that has changed');
  Info := Combo.LanguageInfos.Find('GERMAN');
  Expect((Info <> nil) and (Info.ImageIndex = 1), 'how a language is shown');
  Copied := TmlLangCombo.Create(Form);
  Copied.LanguageInfos := Combo.LanguageInfos;
  Info := Copied.LanguageInfos.Find('German');
  ExpectText('Deutsch Sans', Info.DisplayText + ' ' + Info.Font.Name, 'infos that are assigned');
  Lang.Free;
  Combo.Refresh;
  ExpectText('Deutsch;English', Combo.Items[0] + ';' + Combo.Items[1], 'without a component those of the infos');
  Combo.ItemIndex := 1;
  Combo.Select;
  ExpectText('English', ProgramLanguage, 'and the program''s language');
  Action.Remember := True;
  Action.Execute;
  ExpectText('German', ProgramLanguage, 'a language that is remembered');
  RememberLanguage('');
  ExpectText('Schiff', TmlLabel(Part('lblShip')).Caption, 'a label whose component is gone stays');
  FreeAndNil(Form);
end;

procedure TestStorage;
begin
  Open(False);
  Form.Show;
  Form.SetBounds(320, 200, 400, 300);
  Form.Caption := 'Mine'#10'ä';
  TEdit(Part('edtName')).Text := 'Berta';
  FreeAndNil(Form);
  Open(False);
  ExpectText('Base', Form.Caption, 'before it is shown');
  Form.Show;
  ExpectText('320 200 400 300', Format('%d %d %d %d', [Form.Left, Form.Top, Form.Width, Form.Height]), 'place and size');
  ExpectText('Mine'#10'ä Berta', Form.Caption + ' ' + TEdit(Part('edtName')).Text, 'properties');
  TmlFormStorage(Part('stgForm')).Active := False;
  Form.Caption := 'Not kept';
  FreeAndNil(Form);
  Open(False);
  TmlFormStorage(Part('stgForm')).Restore;
  ExpectText('Mine'#10'ä', Form.Caption, 'nothing is kept by one that is not active');
  Form.Caption := 'Never shown';
  FreeAndNil(Form);
  Open(False);
  Form.Show;
  ExpectText('Mine'#10'ä', Form.Caption, 'nor by a form that was never shown');
  TmlFormStorage(Part('stgForm')).FileName := '/proc/nowhere/forms.ini';
  FreeAndNil(Form);
end;

function StoredFile: string;
begin
  Result := GetEnvironmentVariable('HOME') + '/stored.ini';
end;

procedure OpenStored;
begin
  Open(False);
  TmlFormStorage(Part('stgForm')).FileName := StoredFile;
  Form.Show;
  Application.ProcessMessages;
end;

{ The form after these lines have been kept of it; "|" stands for the end of one. }
procedure OpenWith(const Lines: string);
var
  Text: TStringStream;
begin
  Text := TStringStream.Create(StringReplace('[DesignedForm]|' + Lines, '|', #10, [rfReplaceAll]));
  Text.SaveToFile(StoredFile);
  Text.Free;
  OpenStored;
end;

procedure TestStoredTexts;
const
  Texts: array[0..6] of string = ('', ' '#9'a'#9' ', #10'a'#13#10, #1'"a"'#2, '<a>', '''a''', #2'e');
var
  Text: string;
begin
  for Text in Texts do
  begin
    OpenWith('');
    Form.Caption := Text;
    FreeAndNil(Form);
    OpenStored;
    ExpectText(Text, Form.Caption, 'a text that is kept');
    FreeAndNil(Form);
  end;
  OpenWith('.Caption= "a"'#2'nb '#1'|edtName.Text='#1'|');
  ExpectText('"a"'#10'b', Form.Caption + TEdit(Part('edtName')).Text, 'texts that an earlier version has kept');
  FreeAndNil(Form);
end;

procedure ExpectPlace(const Expected, What: string);
begin
  ExpectText(Expected, Format('%d %d %d %d', [Form.RestoredLeft, Form.RestoredTop, Form.RestoredWidth,
    Form.RestoredHeight]), What);
  Expect(Form.WindowState = wsMaximized, What + ' when it is no longer maximized');
end;

procedure TestMaximized;
begin
  OpenWith('');
  Form.SetBounds(320, 200, 400, 300);
  Application.ProcessMessages;
  Form.WindowState := wsMaximized;
  Form.SetBounds(0, 0, 1280, 1024);
  Application.ProcessMessages;
  FreeAndNil(Form);
  OpenStored;
  ExpectPlace('320 200 400 300', 'where it returns to');
  FreeAndNil(Form);
  OpenStored;
  ExpectPlace('320 200 400 300', 'where it returns to in the run behind');
  FreeAndNil(Form);
end;

procedure NoteComponents(const Page: string; Classes: array of TComponentClass);
var
  I: Integer;
begin
  Registered := Registered + Page + ':';
  for I := 0 to High(Classes) do
    Registered := Registered + ' ' + Classes[I].ClassName;
  Registered := Registered + #10;
end;

procedure NoteActions(const Category: string; const Classes: array of TBasicActionClass; Resource: TComponentClass);
begin
  Registered := Registered + Category + ': ' + Classes[0].ClassName + #10;
end;

procedure TestRegistration;
var
  Names: TNames;
  Editor: TPropertyEditor;
  Info: PPropInfo;
  Lang: TmlLang;
begin
  RegisterComponentsProc := NoteComponents;
  RegisterActionsProc := NoteActions;
  Mlreg.Register;
  Mldialog_reg.Register;
  ExpectText('Velmora: TmlLang TmlLangRTSE TmlLangRT TmlLangLinked TmlLangTLV TmlLangDispatcher TmlLabel TmlFormStorage'#10 +
    'mlLang: TmlLangChangeLanguage'#10'Velmora: TmlLangCombo'#10'mlDialogs: TmlOpenDialog TmlSaveDialog ' +
    'TmlOpenPictureDialog TmlSavePictureDialog TmlFontDialog TmlColorDialog TmlPrintDialog TmlPrinterSetupDialog ' +
    'TmlFindDialog TmlReplaceDialog TmlBrowseForFolder TmlTaskDialog'#10, Registered, 'what a designer gets');
  Lang := TmlLang.Create(nil);
  Lang.NumOfLanguages := 2;
  Lang.LangNames.Add('English');
  Info := GetPropInfo(Lang, 'Language');
  Expect(GetEditorClass(Info, Lang) = TActiveLanguageProperty, 'the editor of the language');
  Names := TNames.Create;
  Editor := TActiveLanguageProperty.Create(nil, 1);
  Editor.SetPropEntry(0, Lang, Info);
  Expect([paValueList, paMultiSelect, paRevertable] <= Editor.GetAttributes, 'is a list');
  Editor.GetValues(Names.Add);
  ExpectText('English;Language N2;', Names.Text, 'of the component''s languages');
  Editor.Free;
  Names.Free;
  Lang.Free;
end;

begin
  Application.Initialize;
  RegisterClasses([TEdit, TmlLangDispatcher]);
  Files := TFormFiles.Create;
  TestDesigned;
  TestRunning;
  TestStorage;
  TestStoredTexts;
  TestMaximized;
  TestRegistration;
  Files.Free;
  CloseTests;
end.

{ Forms with controls: what a change of language sets, keeps, puts back and bears. }
program Testforms;

{$MODE Delphi}

uses
  CThreads, Classes, SysUtils, Interfaces, Forms, Controls, CheckLst, ComCtrls, ExtCtrls, Graphics, LResources, StdCtrls, Mlcustomlang,
  Mllang, Mllangdispatcher, Mllanglinked, Mllangtlv, Mlloading, Mlproglang, Mltesting, Mlformfiles;

type
  TEvents = class
    Log: string;
    Other: TComponent;
    Lang: TmlCustomLang;
    procedure Changed(Sender: TObject);
    procedure ChangeAgain(Sender: TObject);
    procedure Destroys(Sender: TObject);
    procedure Kept(Sender: TObject; const Key, Text: string);
    procedure Missing(Sender: TObject; Kind: TmlMissingKind; const Name: string);
  end;

  { Forms with resources. }
  TBaseForm = class(TForm)
    One: TLabel;
    mlLang: TmlLang;
    procedure FormCreate(Sender: TObject);
  public
    AtCreate: string;
  end;

  TChildForm = class(TBaseForm)
    Two: TLabel;
  end;

  TCargoPart = class(TFrame)
    Weight: TLabel;
    mlLang: TmlLang;
  end;

  THolderForm = class(TForm)
    Cargo: TCargoPart;
    mlLang: TmlLang;
  end;

  TTextsModule = class(TDataModule)
    mlLang: TmlLang;
  end;

var
  Files: TFormFiles;
  Events: TEvents;
  Form: TForm;

procedure TBaseForm.FormCreate(Sender: TObject);
begin
  AtCreate := Caption + ' ' + One.Caption;
end;

procedure TEvents.Changed(Sender: TObject);
begin
  Log := Log + 'changed;';
end;

procedure TEvents.ChangeAgain(Sender: TObject);
begin
  Lang.Language := 'French';
end;

procedure TEvents.Destroys(Sender: TObject);
begin
  FreeAndNil(Other);
end;

procedure TEvents.Kept(Sender: TObject; const Key, Text: string);
begin
  Log := Log + Key + '=' + Text + ';';
end;

procedure TEvents.Missing(Sender: TObject; Kind: TmlMissingKind; const Name: string);
begin
  Log := Log + Name + ';';
end;

const
  Names = 'object mlLang: TmlLang'#10'NumOfLanguages = 4'#10 +
    'LangNames.Strings = (''English'' ''German'' ''French'' ''Arabic'')'#10;

{ Reads a form of these lines; "|" stands for the end of a line, "~" for the delimiter between quotes. }
function Read(const Components, Tables: string): TmlLang;
var
  Text: string;
begin
  Text := 'object Form: TForm|Caption = ''Base''|ClientWidth = 400|ClientHeight = 300|' + Components + '|' + Names +
    Tables + '|end|end';
  Text := StringReplace(StringReplace(Text, '|', #10, [rfReplaceAll]), '~', '''#1''', [rfReplaceAll]);
  Form := TForm.CreateNew(nil);
  Files.Read(Text, Form);
  Result := Form.FindComponent('mlLang') as TmlLang;
  Result.OnKept := Events.Kept;
  Result.OnMissing := Events.Missing;
  Result.OnChangeLanguage := Events.Changed;
  ApplyLoaded;
  Events.Lang := Result;
end;

function Part(const Name: string): TComponent;
begin
  Result := Form.FindComponent(Name);
end;

procedure Done;
begin
  FreeAndNil(Form);
  Events.Log := '';
end;

procedure TestKept;
var
  Lang: TmlLang;
begin
  Lang := Read('object One: TLabel|Caption = ''One''|end|object Two: TLabel|Caption = ''Two''|end',
    'Captions.Strings = (''.Caption~Base~Basis'' ''One.Caption~One~Eins~Un'' ''Two.Caption~Two~Zwei~Deux'' ''Two.Caption~x~y'')');
  ExpectText('', Events.Log, 'nothing is told while the language stays');
  TLabel(Part('One')).Caption := 'Mine';
  Lang.Language := 'German';
  ExpectText('Basis', Form.Caption, 'the form itself');
  ExpectText('Mine', TLabel(Part('One')).Caption, 'what the program has set is kept');
  ExpectText('Zwei', TLabel(Part('Two')).Caption, 'of a key that stands twice the first counts');
  ExpectText('One.Caption=Eins;changed;', Events.Log, 'what was kept is told');
  TLabel(Part('One')).Caption := 'One';
  Lang.Language := 'French';
  ExpectText('Un', TLabel(Part('One')).Caption, 'it is ours again once it reads as before');
  ExpectText('Base', Form.Caption, 'an empty value shows the base text');
  Lang.Language := '';
  ExpectText('One', TLabel(Part('One')).Caption, 'the base language');
  Done;
end;

procedure TestActive;
var
  Lang: TmlLang;
begin
  Lang := Read('object One: TLabel|Caption = ''Eins''|end', 'Language = ''German''|Captions.Strings = (''One.Caption~One~Eins~Un'')');
  ExpectText('German', Lang.Language, 'the language in which the form was saved');
  Lang.Language := 'French';
  ExpectText('Un', TLabel(Part('One')).Caption, 'from the saved language to another');
  Done;
  SetProgramLanguage('French');
  Lang := Read('object One: TLabel|Caption = ''Eins''|end', 'Language = ''German''|Captions.Strings = (''One.Caption~One~Eins~Un'')');
  ExpectText('Un', TLabel(Part('One')).Caption, 'a form that is loaded begins in the language of the program');
  SetProgramLanguage('');
  Done;
end;

procedure TestLists;
var
  Lang: TmlLang;
  List: TCheckListBox;
  Combo: TComboBox;
begin
  Lang := Read('object List: TCheckListBox|Sorted = True|Items.Strings = (''a'' ''b'' ''c'')|end|' +
    'object Combo: TComboBox|Items.Strings = (''On'' ''Off'')|end', 'MultiLines.Strings = (' +
    '''List.Items~a''#2''nb''#2''nc~z''#2''ny''#2''nx'' ''Combo.Items~On''#2''nOff~An''#2''nAus''#2''nDrittes'')');
  Form.Show;
  List := TCheckListBox(Part('List'));
  List.Checked[0] := True;
  List.ItemIndex := 1;
  List.Items.Objects[2] := Form;
  Combo := TComboBox(Part('Combo'));
  Combo.Text := 'Off';
  Lang.Language := 'German';
  ExpectText('x,y,z', List.Items.CommaText, 'a sorted list sorts again');
  Expect(List.Checked[2] and not List.Checked[0] and (List.ItemIndex = 1), 'checks and selection follow their items');
  Expect((List.Items.Objects[0] = Form) and (List.Items.Objects[2] = nil), 'objects follow their items');
  ExpectText('An,Aus', Combo.Items.CommaText, 'the number of items stays');
  Lang.Language := 'English';
  ExpectText('a,b,c', List.Items.CommaText, 'the base order');
  Expect(List.Checked[0] and not List.Checked[2] and (List.Items.Objects[2] = Form), 'as they were');
  List.Items.Add('d');
  Lang.Language := 'German';
  ExpectText('a,b,c,d', List.Items.CommaText, 'items of the program are kept');
  Done;
end;

procedure TestCombo;
var
  Lang: TmlLang;
  Combo: TComboBox;
begin
  Lang := Read('object Combo: TComboBox|Items.Strings = (''On'' ''Off'')|end',
    'MultiLines.Strings = (''Combo.Items~On''#2''nOff~An''#2''nAus'')');
  Combo := TComboBox(Part('Combo'));
  Combo.ItemIndex := 1;
  Combo.OnChange := Events.Changed;
  Lang.Language := 'German';
  ExpectText('Aus', Combo.Text, 'the text follows its item');
  Combo.Text := 'Mine';
  Lang.Language := 'English';
  ExpectText('Mine', Combo.Text, 'another text stays');
  Done;
end;

procedure TestFonts;
var
  Lang: TmlLang;
  One: TLabel;
begin
  Lang := Read('object One: TLabel|Font.Height = -12|ParentFont = True|end', 'Fonts.Strings = (''One.Font~Height=-12~Name=Sans\;x;Style=Bold,Italic~Height=-20'')');
  One := TLabel(Part('One'));
  One.ParentFont := True;
  One.Font.Height := -12;
  Lang.Language := 'German';
  Expect((One.Font.Name = 'Sans;x') and (One.Font.Height = -12) and (One.Font.Style = [fsBold, fsItalic]), 'parts of a font');
  Lang.Language := 'French';
  Expect((One.Font.Name = 'default') and (One.Font.Height = -20) and (One.Font.Style = []), 'other parts are as before');
  Lang.Language := 'English';
  Expect((One.Font.Height = -12) and (One.Font.Style = []), 'the base font');
  Done;
end;

{ A part that the form gives and its table does not know. }
procedure TestOwnPartOfFont;
var
  Lang: TmlLang;
  One: TLabel;
begin
  Lang := Read('Font.Name = ''Serif''|object One: TLabel|Font.Height = -12|Font.Name = ''Own''|ParentFont = False|end|' +
    'object Two: TLabel|end', 'Fonts.Strings = (''One.Font~Height=-12~Name=Sans;Height=-9~Height=-20'' ' +
    '''Two.Font~~Name=Sans;Style=Bold'')');
  One := TLabel(Part('One'));
  Lang.Language := 'German';
  Expect((One.Font.Name = 'Own') and (One.Font.Height = -12), 'the person''s part of a font is kept');
  ExpectText('Sans', TLabel(Part('Two')).Font.Name, 'the form''s part is nobody''s');
  Lang.Language := 'French';
  Expect((One.Font.Name = 'Own') and (One.Font.Height = -20), 'where the language does not speak of it the others are set');
  Lang.Language := 'German';
  ExpectText('Own', One.Font.Name, 'the person''s part of a font is kept after others were set');
  Lang.Language := 'English';
  Expect((One.Font.Name = 'Own') and (One.Font.Height = -12), 'the base font with a part of the person''s');
  ExpectText('One.Font=Name=Sans;Height=-9;changed;changed;One.Font=Name=Sans;Height=-9;changed;changed;', Events.Log,
    'the font that was kept is told');
  ExpectText('Serif', TLabel(Part('Two')).Font.Name, 'the form''s part is back');
  Done;
end;

procedure TestMirror;
var
  Lang: TmlLang;
  One, Two: TLabel;
begin
  Lang := Read('object One: TLabel|Left = 10|Width = 50|AutoSize = False|end|' +
    'object Two: TLabel|Left = 100|Width = 50|AutoSize = False|Anchors = [akTop, akRight]|end',
    'Locales.Strings = (''.Locale~en~de~fr~ar'')');
  One := TLabel(Part('One'));
  Two := TLabel(Part('Two'));
  Lang.Language := 'Arabic';
  Expect((Form.BiDiMode = bdRightToLeft) and (One.BiDiMode = bdRightToLeft), 'from right to left');
  Expect((One.Left = Form.ClientWidth - 60) and (Two.Left = Form.ClientWidth - 150) and (Two.Anchors = [akTop, akLeft]), 'mirrored');
  Lang.Language := 'German';
  Expect((Form.BiDiMode = bdLeftToRight) and (One.Left = 10) and (Two.Left = 100), 'and back');
  Lang.MirrorLayout := False;
  Lang.Language := 'Arabic';
  Expect((Form.BiDiMode = bdRightToLeft) and (One.Left = 10), 'without mirroring');
  Done;
end;

procedure TestItems;
var
  Lang: TmlLang;
  Tree: TTreeView;
  Node: TTreeNode;
begin
  Lang := Read('object Tree: TTreeView|end|object View: TListView|Columns = <|item|Caption = ''Name''|end>|end',
    'Collections.Strings = (''View.Columns[0].Caption~Name~Wort'' ''View.Columns[7].Caption~a~b'')|' +
    'ExtendedTranslations = <|item|Component = ''View''|Property = ''HelpKeyword''|Values.Strings = ('''' ''Hilfe'')|end>');
  ExpectText('View.Columns[7].Caption;', Events.Log, 'an item that is not there is told');
  Lang.Language := 'German';
  ExpectText('Wort', TListView(Part('View')).Columns[0].Caption, 'a column');
  Done;
  Form := TForm.CreateNew(nil);
  Tree := TTreeView.Create(Form);
  Tree.Name := 'Tree';
  Node := Tree.Items.AddChildObject(Tree.Items.Add(nil, 'Root'), 'Child', Form);
  with TmlLangTLV.Create(Form) do
  begin
    NumOfLanguages := 2;
    ListView_TreeView_Items.Add('Tree.Items[0].Text'#1'Root'#1'Wurzel');
    ListView_TreeView_Items.Add('Tree.Items[0][0].Text'#1'Child'#1'Kind');
    Language := 'Language N2';
  end;
  ExpectText('Wurzel', Tree.Items[0].Text, 'a node');
  Expect((Node.Text = 'Kind') and (Node.Data = Form), 'a node keeps its object');
  Done;
end;

procedure FillSortedViews(Lang: TmlLangTLV; Tree: TTreeView; View: TListView);
const
  Values: array[0..3] of string = ('a'#1'z'#1'x', 'b'#1'y'#1'y', 'c'#1'x'#1'a', 'd'#1'w'#1'b');
var
  I: Integer;
  Root: TTreeNode;
begin
  Root := Tree.Items.Add(nil, 'Root');
  View.Columns.Add;
  for I := 0 to 3 do
  begin
    Tree.Items.AddChild(Root, Values[I][1]);
    View.Items.Add.Caption := Values[I][1];
    Lang.ListView_TreeView_Items.Add(Format('Tree.Items[0][%d].Text'#1'%s', [I, Values[I]]));
    Lang.ListView_TreeView_Items.Add(Format('View.Items[%d].Caption'#1'%s', [I, Values[I]]));
  end;
  Tree.SortType := stText;
  View.SortColumn := 0;
  View.SortType := stText;
end;

function ViewTexts(Tree: TTreeView; View: TListView): string;
var
  I: Integer;
begin
  Result := '';
  for I := 0 to Tree.Items[0].Count - 1 do
    Result := Result + Tree.Items[0][I].Text;
  Result := Result + ' ';
  for I := 0 to View.Items.Count - 1 do
    Result := Result + View.Items[I].Caption;
end;

procedure TestSortedViews;
var
  Tree: TTreeView;
  View: TListView;
  Node: TTreeNode;
  Item: TListItem;
  Lang: TmlLangTLV;
begin
  Read('object Tree: TTreeView|end|object View: TListView|end', '');
  Tree := TTreeView(Part('Tree'));
  View := TListView(Part('View'));
  Lang := TmlLangTLV.Create(Form);
  Lang.NumOfLanguages := 3;
  FillSortedViews(Lang, Tree, View);
  Form.Show;
  Item := View.Items[1];
  Node := Tree.Items[0][1];
  Lang.Language := 'Language N2';
  ExpectText('wxyz wxyz', ViewTexts(Tree, View), 'sorted in another language');
  Expect((Node.Text = 'y') and (Item.Caption = 'y'), 'nodes and items keep what they are');
  Lang.Language := 'Language N3';
  ExpectText('abxy abxy', ViewTexts(Tree, View), 'and in a third');
  Lang.Language := '';
  ExpectText('abcd abcd', ViewTexts(Tree, View), 'the base order');
  Expect((Tree.SortType = stText) and (View.SortType = stText), 'the sorting stays on');
  Lang.Language := 'Language N2';
  Node.Delete;
  Item.Delete;
  Lang.Language := '';
  ExpectText('wxz wxz', ViewTexts(Tree, View), 'other items than before are the program''s');
  Done;
end;

{ As on a screen of twice the density. }
procedure TestScaled;
var
  Lang: TmlLang;
  One, Two: TLabel;
begin
  Lang := Read('object One: TLabel|Font.Height = -12|end|object Two: TLabel|end', 'Fonts.Strings = (' +
    '''One.Font~Height=-12~Height=-20'' ''Two.Font~Name=default~Name=Sans'')');
  One := TLabel(Part('One'));
  Two := TLabel(Part('Two'));
  Lang.Language := 'German';
  Lang.Language := 'English';
  Form.AutoAdjustLayout(lapAutoAdjustForDPI, 96, 192, 400, 800);
  Expect((Form.PixelsPerInch = 192) and (One.Font.Height < -20), 'the form is scaled');
  Lang.Language := 'German';
  Expect((One.Font.Height = -40) and (Two.Font.Name = 'Sans'), 'its fonts follow the language');
  Lang.Language := 'English';
  Expect((One.Font.Height = -24) and (Two.Font.Name = 'default'), 'and back');
  ExpectText('changed;changed;changed;changed;', Events.Log, 'none is kept');
  Done;
end;

{ A form of a damaged file. }
procedure TestNames;
var
  Lang: TmlLang;
begin
  Lang := Read('object One: TLabel|Caption = ''One''|end',
    'Captions.Strings = (''One.Caption~One~Eins~Un~Wahid~Uno'')|NumOfLanguages = 6');
  Lang.Language := 'Language N5';
  ExpectText('Uno', TLabel(Part('One')).Caption, 'more languages than names');
  Lang.Language := 'Language N6';
  ExpectText('One', TLabel(Part('One')).Caption, 'more languages than values');
  Done;
end;

procedure TestDamage;
var
  Lang: TmlLang;
begin
  Lang := Read('object One: TLabel|Caption = ''One''|end', 'Captions.Strings = ('''' ''~'' ''One.Caption'' ''x'' ''.x.y~a~b'' ' +
    '''One.[~a~b'' ''One.Left~10~far'' ''One.Caption.Text~a~b'' ''One~a~b'')');
  Lang.Language := 'German';
  ExpectText('x;.x.y;One.[;One.Caption.Text;One;One.Caption=;One.Left=10;One.Caption=;' +
    'One.Left: "far" is an invalid integer;changed;', Events.Log,
    'damaged lines and unknown keys are told');
  ExpectText('One', TLabel(Part('One')).Caption, 'a line without values says nothing');
  Done;
end;

procedure TestDestroyed;
var
  Lang: TmlLang;
begin
  Lang := Read('object One: TEdit|Text = ''a''|end|object Two: TEdit|Text = ''a''|end|object Three: TEdit|Text = ''a''|end',
    'OtherStrings.Strings = (''One.Text~a~b~c'' ''Two.Text~a~b~c'' ''Three.Text~a~b~c'')');
  Events.Other := Part('Two');
  TEdit(Part('One')).OnChange := Events.Destroys;
  Lang.Language := 'German';
  Expect((Part('Two') = nil) and (TEdit(Part('Three')).Text = 'b'), 'a component destroyed during the change');
  TEdit(Part('One')).OnChange := Events.ChangeAgain;
  Lang.Language := 'English';
  Expect((Lang.Language = 'French') and (TEdit(Part('One')).Text = 'c') and (TEdit(Part('Three')).Text = 'c'),
    'a change of language inside one follows it');
  TEdit(Part('One')).OnChange := Events.Destroys;
  Events.Other := Lang;
  Lang.Language := 'German';
  Expect(TEdit(Part('Three')).Text = 'c', 'the localization component destroyed during its change');
  Done;
  Lang := Read('object One: TEdit|Text = ''a''|end', 'OtherStrings.Strings = (''.Caption~Base~b'' ''One.Text~a~b'')');
  Lang.OnChangeLanguage := Events.Destroys;
  Events.Other := Form;
  Form := nil;
  Lang.Language := 'German';
  Expect(Events.Other = nil, 'the form destroyed during its change');
  Done;
end;

procedure TestFrames;
const
  Frame = 'object Cargo: TCargoFrame'#10'object Weight: TLabel'#10'Caption = ''Weight'''#10'end'#10'object Size: TLabel'#10 +
    'Caption = ''Size'''#10'end'#10 + Names + 'Captions.Strings = (''Weight.Caption''#1''Weight''#1''Gewicht''#1''Poids'''#10 +
    '''Size.Caption''#1''Size''#1''Maß'')'#10'end'#10'end';
var
  Lang: TmlLang;
  Cargo: TComponent;
begin
  Files.AddFrame(Frame);
  Lang := Read('inline Cargo: TCargoFrame|inherited Weight: TLabel|end|end',
    'Captions.Strings = (''Cargo.Weight.Caption~Weight~Masse~Masse'')');
  Cargo := Part('Cargo');
  Lang.Language := 'German';
  ExpectText('Masse', TLabel(Cargo.FindComponent('Weight')).Caption, 'the form counts after its frame');
  ExpectText('Maß', TLabel(Cargo.FindComponent('Size')).Caption, 'the frame comes along');
  Lang.Language := 'French';
  ExpectText('Masse', TLabel(Cargo.FindComponent('Weight')).Caption, 'and again');
  ExpectText('changed;changed;', Events.Log, 'neither takes the other for the program');
  Lang.Language := 'English';
  ExpectText('Weight', TLabel(Cargo.FindComponent('Weight')).Caption, 'the base language');
  Cargo.Free;
  Lang.Language := 'German';
  Done;
end;

procedure TestLateDispatcher;
var
  Lang: TmlLang;
  Dispatcher: TmlLangDispatcher;
  Module: TDataModule;
begin
  Module := TDataModule.Create(nil);
  Files.Read('object Module: TDataModule'#10'object Dispatcher: TmlLangDispatcher'#10'NumOfLanguages = 3'#10 +
    'Language = ''Language N2'''#10'end'#10'end', Module);
  ApplyLoaded;
  Dispatcher := TmlLangDispatcher(Module.FindComponent('Dispatcher'));
  Dispatcher.Language := 'Language N3';
  Lang := Read('object One: TLabel|Caption = ''Eins''|end', 'Captions.Strings = (''One.Caption~One~Eins~Un'')');
  Lang.Dispatcher := Dispatcher;
  ExpectText('Un', TLabel(Part('One')).Caption, 'a form saved in the language of its dispatcher, linked when all is there');
  Dispatcher.OnChangeLanguage := Events.Changed;
  Events.Log := '';
  Dispatcher.Language := '';
  ExpectText('One', TLabel(Part('One')).Caption, 'and back');
  ExpectText('changed;changed;', Events.Log, 'the form tells, then the dispatcher');
  Done;
  Module.Free;
end;

procedure TestInherited;
var
  Lang: TmlLang;
begin
  Form := TForm.CreateNew(nil);
  Files.Read('object Base: TBaseForm'#10'object One: TLabel'#10'Caption = ''One'''#10'end'#10 + Names +
    'Captions.Strings = (''One.Caption''#1''One''#1''Eins'')'#10'Strings.Strings = (''A''#1''a''#1''ä'')'#10'end'#10'end', Form);
  Files.Read('inherited Child: TChildForm'#10'inherited One: TLabel'#10'Caption = ''First'''#10'end'#10'inherited mlLang: TmlLang'#10 +
    'Captions.Strings = (''One.Caption''#1''First''#1''Erstens'')'#10'end'#10'end', Form);
  ApplyLoaded;
  Lang := TmlLang(Part('mlLang'));
  Lang.Language := 'German';
  ExpectText('Erstens', TLabel(Part('One')).Caption, 'a descendant holds the whole table');
  ExpectText('ä', Lang.GetText('A'), 'a table that it does not hold is its ancestor''s');
  Done;
end;

procedure AddResource(const Text: string);
var
  Lines: TStringStream;
  Binary: TStringStream;
begin
  Lines := TStringStream.Create(StringReplace(Text, '|', #10, [rfReplaceAll]));
  Binary := TStringStream.Create('');
  LRSObjectTextToBinary(Lines, Binary);
  LazarusResources.Add(UpperCase(ClassIn(Lines.DataString)), 'FORMDATA', Binary.DataString);
  Lines.Free;
  Binary.Free;
end;

procedure AddResources;
begin
  AddResource('object BaseForm: TBaseForm|Caption = ''Base''|OnCreate = FormCreate|' + Names + 'Captions.Strings = (' +
    '''.Caption''#1''Base''#1''Basis'' ''One.Caption''#1''One''#1''Eins'')|end|object One: TLabel|Caption = ''One''|end|end');
  AddResource('inherited ChildForm: TChildForm|Caption = ''Child''|inherited mlLang: TmlLang|Captions.Strings = (' +
    '''.Caption''#1''Child''#1''Kind'' ''One.Caption''#1''One''#1''Eins'' ''Two.Caption''#1''Two''#1''Zwei'')|end|' +
    'object Two: TLabel|Caption = ''Two''|end|end');
  AddResource('object CargoPart: TCargoPart|' + Names + 'Captions.Strings = (''Weight.Caption''#1''Weight''#1''Gewicht'')|end|' +
    'object Weight: TLabel|Caption = ''Weight''|end|end');
  AddResource('object HolderForm: THolderForm|inline Cargo: TCargoPart|inherited Weight: TLabel|Caption = ''Mass''|end|end|' +
    Names + 'Captions.Strings = (''Cargo.Weight.Caption''#1''Mass''#1''Masse'')|end|end');
  AddResource('object TextsModule: TTextsModule|' + Names + 'Strings.Strings = (''A''#1''a''#1''ä'')|end|end');
end;

{ As programs make them. }
procedure TestResources;
var
  Child: TChildForm;
  Holder: THolderForm;
  Part: TCargoPart;
  Module: TTextsModule;
begin
  AddResources;
  SetProgramLanguage('German');
  Child := TChildForm.Create(nil);
  ExpectText('Kind Eins', Child.AtCreate, 'an inherited form is in the language before its OnCreate');
  ExpectText('Zwei', Child.Two.Caption, 'what the descendant adds');
  Holder := THolderForm.Create(nil);
  ExpectText('Masse', Holder.Cargo.Weight.Caption, 'a frame that the form holds');
  Part := TCargoPart.Create(Holder);
  ExpectText('Gewicht', Part.Weight.Caption, 'a frame that the program makes');
  Module := TTextsModule.Create(nil);
  ExpectText('ä', Module.mlLang.GetText('A'), 'a data module');
  SetProgramLanguage('English');
  ExpectText('Child One Two', Child.Caption + ' ' + Child.One.Caption + ' ' + Child.Two.Caption, 'back');
  ExpectText('Mass Weight', Holder.Cargo.Weight.Caption + ' ' + Part.Weight.Caption, 'frames, too');
  SetProgramLanguage('');
  Module.Free;
  Holder.Free;
  Child.Free;
end;

procedure TestLinked;
var
  Own, Other: TmlLangLinked;
  Common: TmlLang;
begin
  Own := TmlLangLinked.Create(nil);
  Other := TmlLangLinked.Create(nil);
  Common := TmlLang.Create(nil);
  Common.Strings.Add('OK'#1'ok');
  Own.Strings.Add('A'#1'a');
  Own.CommonContainer := Common;
  ExpectText('a', Own.GetText('a'), 'an own text');
  ExpectText('ok', Own.GetText('ok'), 'a common text');
  Own.CommonContainer := Other;
  Other.CommonContainer := Own;
  ExpectText('OK', Own.GetText('OK'), 'containers in a circle');
  Other.CommonContainer := Common;
  Common.Free;
  ExpectText('OK', Own.GetText('OK'), 'a container that is gone');
  Own.Free;
  Other.Free;
end;

begin
  Application.Initialize;
  RegisterClasses([TLabel, TEdit, TComboBox, TCheckListBox, TListView, TTreeView, TmlLangDispatcher]);
  Files := TFormFiles.Create;
  Events := TEvents.Create;
  TestKept;
  TestActive;
  TestLists;
  TestCombo;
  TestFonts;
  TestOwnPartOfFont;
  TestMirror;
  TestItems;
  TestSortedViews;
  TestScaled;
  TestNames;
  TestDamage;
  TestDestroyed;
  TestFrames;
  TestInherited;
  TestLateDispatcher;
  TestResources;
  TestLinked;
  Events.Free;
  Files.Free;
  CloseTests;
end.

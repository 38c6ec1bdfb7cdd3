{ Shows form files as the LCL streams them, without the code of their programs, and writes down where the controls
  stand. Arguments: a file with the paths of form files, the file to write to, and the number of the first form to
  take (for going on behind one that ends the program). What cannot be streamed without its program is left out, with
  the reason: "left out", path and reason, separated by tabs. Before each form, "form" and its path. }
program Formshow;

{$MODE ObjFPC}{$H+}

uses
  CThreads, Classes, SysUtils, Interfaces, Forms, Controls, StdCtrls, ExtCtrls, ComCtrls, Buttons, Grids, Menus, Dialogs,
  Spin, CheckLst, EditBtn, ButtonPanel, Calendar, ColorBox, DBCtrls, DBGrids, PairSplitter, ShellCtrls, ExtDlgs, ActnList,
  MaskEdit, Arrow, ComboEx, GroupedEdit, ValEdit, StdActns, FileCtrl, LResources, Graphics, DividerBevel,
  ListFilterEdit, TreeFilterEdit, DB, Layoutdump;

type
  THost = class
    Unknown: string;
    procedure FindMethod(Reader: TReader; const Name: string; var Address: CodePointer; var Error: Boolean);
    procedure FindClass(Reader: TReader; const Name: string; var Found: TComponentClass);
    procedure ReadOn(Reader: TReader; const Message: string; var Handled: Boolean);
  end;
  TUnknown = class(TComponent);

var
  Host: THost;
  Lines, Files: TStringList;
  Number: Integer;

procedure THost.FindMethod(Reader: TReader; const Name: string; var Address: CodePointer; var Error: Boolean);
begin
  Address := nil;
  Error := False;
end;

procedure THost.FindClass(Reader: TReader; const Name: string; var Found: TComponentClass);
begin
  if Found <> nil then Exit;
  if Unknown = '' then Unknown := Name;
  Found := TUnknown;
end;

procedure THost.ReadOn(Reader: TReader; const Message: string; var Handled: Boolean);
begin
  Handled := True;
end;

procedure Load(Root: TWinControl; Text: TStream);
var
  Binary: TMemoryStream;
  Reader: TReader;
  Close: Boolean;
begin
  Binary := TMemoryStream.Create;
  Text.Position := 0;
  LRSObjectTextToBinary(Text, Binary);
  Binary.Position := 0;
  Reader := CreateLRSReader(Binary, Close);
  Reader.OnFindMethod := @Host.FindMethod;
  Reader.OnFindComponentClass := @Host.FindClass;
  Reader.OnError := @Host.ReadOn;
  Root.DisableAutoSizing;
  try
    Reader.ReadRootComponent(Root);
  finally
    Root.EnableAutoSizing;
    Reader.Free;
    Binary.Free;
  end;
end;

procedure ShowText(Text: TStringStream);
var
  Form: TForm;
  Frame: TFrame;
begin
  Form := TForm.CreateNew(nil);
  try
    if Pos('DesignLeft', Text.DataString) > 0 then
    begin
      Frame := TFrame.Create(nil);
      Form.SetBounds(0, 0, 1200, 900);
      Load(Frame, Text);
      Frame.Align := alNone;
      Frame.Anchors := [akLeft, akTop];
      Frame.Visible := True;
      Frame.Parent := Form;
    end
    else
    begin
      Frame := nil;
      Load(Form, Text);
    end;
    if Host.Unknown <> '' then
      Lines.Add('left out'#9 + Files[Number] + #9'class ' + Host.Unknown)
    else
    begin
      ShowAtRest(Form);
      if Frame = nil then AddControls(Form, Lines) else AddControls(Frame, Lines);
    end;
  finally
    Form.Free;
  end;
end;

procedure ShowFile;
var
  Text: TStringStream;
  All: TStringList;
begin
  Lines.Add('form'#9 + Files[Number]);
  Lines.SaveToFile(ParamStr(2));
  Host.Unknown := '';
  All := TStringList.Create;
  All.LoadFromFile(Files[Number]);
  Text := TStringStream.Create(All.Text);
  All.Free;
  try
    if Copy(TrimLeft(Text.DataString), 1, 6) <> 'object' then
      Lines.Add('left out'#9 + Files[Number] + #9'inherited')
    else if Pos('inline ', Text.DataString) > 0 then
      Lines.Add('left out'#9 + Files[Number] + #9'frames')
    else if Pos('HorizontalOffset', Text.DataString) > 0 then
      Lines.Add('left out'#9 + Files[Number] + #9'no window')
    else
      ShowText(Text);
  except
    on E: Exception do Lines.Add('left out'#9 + Files[Number] + #9 + E.Message);
  end;
  Text.Free;
end;

begin
  RegisterClasses([TLabel, TButton, TEdit, TMemo, TCheckBox, TRadioButton, TListBox, TComboBox, TScrollBar, TGroupBox,
    TRadioGroup, TCheckGroup, TPanel, TToggleBox, TStaticText, TBitBtn, TSpeedButton, TImage, TShape, TBevel, TPaintBox,
    TNotebook, TPage, TLabeledEdit, TSplitter, TTrayIcon, TControlBar, TFlowPanel, TMaskEdit, TCheckListBox, TScrollBox,
    TStringGrid, TDrawGrid, TPairSplitter, TPairSplitterSide, TColorBox, TColorListBox, TValueListEditor, TComboBoxEx,
    TCheckComboBox, TTrackBar, TProgressBar, TTreeView, TListView, TStatusBar, TToolBar, TToolButton, TUpDown,
    TPageControl, TTabSheet, THeaderControl, TCoolBar, TImageList, TTabControl, TColorButton, TSpinEdit, TFloatSpinEdit,
    TArrow, TCalendar, TEditButton, TFileNameEdit, TDirectoryEdit, TDateEdit, TTimeEdit, TCalcEdit, TFileListBox,
    TFilterComboBox, TButtonPanel, TShellTreeView, TShellListView, TIdleTimer, TTimer, TMainMenu, TPopupMenu, TMenuItem,
    TActionList, TAction, TOpenDialog, TSaveDialog, TSelectDirectoryDialog, TColorDialog, TFontDialog, TFindDialog,
    TReplaceDialog, TOpenPictureDialog, TSavePictureDialog, TCalculatorDialog, TCalendarDialog, TTaskDialog,
    TApplicationProperties, TDBNavigator, TDBText, TDBEdit, TDBMemo, TDBImage, TDBListBox, TDBLookupListBox, TDBComboBox,
    TDBLookupComboBox, TDBCheckBox, TDBRadioGroup, TDBCalendar, TDBGroupBox, TDBGrid, TDataSource, TDividerBevel,
    TListFilterEdit, TTreeFilterEdit, TBoundLabel, TEditCopy, TEditCut, TEditPaste, TEditSelectAll, TEditUndo,
    TEditDelete, TFileExit, TFileOpen, TFileSaveAs]);
  RequireDerivedFormResource := False;
  Application.Initialize;
  Host := THost.Create;
  Lines := TStringList.Create;
  Files := TStringList.Create;
  Files.LoadFromFile(ParamStr(1));
  for Number := StrToInt(ParamStr(3)) to Files.Count - 1 do
    ShowFile;
  Lines.Add('done');
  Lines.SaveToFile(ParamStr(2));
end.

{ Dump [--frame FILE]... FORM... [--language NAME | --write]...
  Reads a form, an inherited one after its ancestors, and prints what it shows; then again after each change of
  language. --write prints the form as the run-time library streams it, an inherited one without what its
  ancestors have. }
program Dump;

{$MODE Delphi}

uses
  Classes, SysUtils, Interfaces, Forms, ButtonPanel, CheckLst, ComCtrls, ExtCtrls, Menus, ActnList, Dialogs, StdCtrls, Grids,
  Mlcustomlang, Mllang, Mllangdispatcher, Mllanglinked, Mllangrt, Mllangrtse, Mllangtlv, Mlloading, Mldumps,
  Mlformfiles;

type
  TEvents = class
    procedure Missing(Sender: TObject; Kind: TmlMissingKind; const Name: string);
    procedure Kept(Sender: TObject; const Key, Text: string);
  end;

var
  Files: TFormFiles;
  Form, Ancestor: TForm;
  Events: TEvents;
  ClassOfForm, AncestorText: string;

procedure TEvents.Missing(Sender: TObject; Kind: TmlMissingKind; const Name: string);
begin
  WriteLn('missing: ', Name);
end;

procedure TEvents.Kept(Sender: TObject; const Key, Text: string);
begin
  WriteLn('kept: ', Key);
end;

function LangOf(Owner: TComponent): TmlCustomLang;
var
  I: Integer;
begin
  for I := 0 to Owner.ComponentCount - 1 do
    if Owner.Components[I] is TmlCustomLang then
    begin
      Result := TmlCustomLang(Owner.Components[I]);
      Exit;
    end;
  raise Exception.Create('The form has no localization component');
end;

procedure ShowTexts;
var
  Lines: TStringList;
begin
  Lines := TStringList.Create;
  try
    WriteLn('== ', LangOf(Form).Language);
    DumpTexts(Form, Lines);
    Write(Lines.Text);
  finally
    Lines.Free;
  end;
end;

procedure Hear(Owner: TComponent);
var
  I: Integer;
begin
  for I := 0 to Owner.ComponentCount - 1 do
  begin
    Hear(Owner.Components[I]);
    if not (Owner.Components[I] is TmlCustomLang) then Continue;
    TmlCustomLang(Owner.Components[I]).OnMissing := Events.Missing;
    TmlCustomLang(Owner.Components[I]).OnKept := Events.Kept;
  end;
end;

procedure ReadForm(const FileName: string);
var
  Text: string;
begin
  Text := TextOfFile(FileName);
  if ClassOfForm <> '' then Files.Read(AncestorText, Ancestor);
  AncestorText := Text;
  ClassOfForm := ClassIn(Text);
  Files.Read(Text, Form);
  Hear(Form);
end;

procedure WriteForm;
begin
  if Ancestor.Name = '' then
    Write(Files.Written(Form, nil, ClassOfForm))
  else
    Write(Files.Written(Form, Ancestor, ClassOfForm));
end;

procedure Run;
var
  I: Integer;
  Shown: Boolean;
begin
  I := 1;
  Shown := False;
  while I <= ParamCount do
  begin
    if ParamStr(I) = '--frame' then
      Files.AddFrame(TextOfFile(ParamStr(I + 1)))
    else if Copy(ParamStr(I), 1, 2) <> '--' then
      ReadForm(ParamStr(I))
    else
    begin
      ApplyLoaded;
      if not Shown and (ParamStr(I) = '--language') then ShowTexts;
      Shown := True;
    end;
    if ParamStr(I) = '--language' then
    begin
      LangOf(Form).Language := ParamStr(I + 1);
      ShowTexts;
    end;
    if ParamStr(I) = '--write' then WriteForm;
    Inc(I, 1 + Ord((ParamStr(I) = '--frame') or (ParamStr(I) = '--language')));
  end;
end;

begin
  SetTextCodePage(Output, CP_UTF8);
  Application.Initialize;
  RegisterClasses([TLabel, TButton, TEdit, TMemo, TListBox, TComboBox, TCheckBox, TRadioButton, TGroupBox, TPanel,
    TRadioGroup, TCheckGroup, TCheckListBox, TLabeledEdit, TListView, TTreeView, TStatusBar, TTabControl, TPageControl,
    TTabSheet, TMainMenu, TPopupMenu, TMenuItem, TActionList, TAction, TOpenDialog, TSaveDialog, TToolBar, TToolButton,
    TStaticText, TScrollBox, TStringGrid, THeaderControl, TImage, TTimer, TBevel, TSplitter, TTrackBar, TToggleBox]);
  Files := TFormFiles.Create;
  Events := TEvents.Create;
  Form := TForm.CreateNew(nil);
  Ancestor := TForm.CreateNew(nil);
  try
    Run;
  finally
    Ancestor.Free;
    Form.Free;
    Events.Free;
    Files.Free;
  end;
end.

{ Linked into a program for the proof of programs, before all that its uses clause names. Once the program waits for
  its user it makes the forms that it has not made itself, and writes down every text that a live component publishes,
  and what the widgets show; then in the base language, then in the first one again. It shares no code with the
  localization components and knows them by the names of their properties only.

  PROOF_FOLDER names the folder for what it finds: first.texts, base.texts and again.texts, a line a text: key, class of
  the component, property, and the text with "\n", "\t" and "\\"; Class.form and Class.lfm, each form as the run-time
  library writes it, binary and as text; events, what was made and what went wrong. }
unit Proofobserver;

{$MODE ObjFPC}{$H+}

interface

implementation

uses
  CThreads, Classes, SysUtils, TypInfo, Interfaces, Forms, Controls, StdCtrls, LResources, gtk2, Proofclasses,
  Programwatch;

const
  { Objects inside objects; forms hold no deeper ones. }
  Deepest = 6;

type
  TProofObserver = class(TProgramWatch)
  private
    FFolder: string;
    FTexts, FEvents: TStringList;
    FComponent: string;
    procedure Missing(Sender: TObject; Kind: Integer; const Name: string);
    procedure WatchMissing(Owner: TComponent);
    procedure MakeForms;
    procedure MakeForm(FormClass: TComponentClass);
    procedure WriteTexts(const Name: string);
    procedure WriteForms;
    procedure ChangeLanguages(const Name: string);
    procedure AddRoot(Root: TComponent; Seen: TStrings);
    procedure AddComponent(Component: TComponent; const Key: string);
    procedure AddOwned(Owner: TComponent; const Key: string);
    procedure AddObject(Item: TObject; const Key, Path: string; Depth: Integer);
    procedure AddPublished(Item: TObject; const Key, Path: string; Depth: Integer);
    procedure AddProperty(Item: TObject; Info: PPropInfo; const Key, Path: string; Depth: Integer);
    procedure AddText(const Key, Path, Text: string);
    procedure AddWidget(Control: TWinControl; const Key: string);
  protected
    procedure Note(const What: string); override;
    procedure Observe; override;
  public
    constructor Create(const Folder: string);
  end;

var
  Observer: TProofObserver;

function Escaped(const Text: string): string;
begin
  Result := StringReplace(Text, '\', '\\', [rfReplaceAll]);
  Result := StringReplace(Result, #13#10, '\n', [rfReplaceAll]);
  Result := StringReplace(Result, #10, '\n', [rfReplaceAll]);
  Result := StringReplace(Result, #13, '\n', [rfReplaceAll]);
  Result := StringReplace(Result, #9, '\t', [rfReplaceAll]);
end;

function IsLanguageComponent(Component: TComponent): Boolean;
begin
  Result := IsPublishedProp(Component, 'NumOfLanguages') and IsPublishedProp(Component, 'Language');
end;

constructor TProofObserver.Create(const Folder: string);
begin
  inherited Create;
  FFolder := Folder;
  FTexts := TStringList.Create;
  FEvents := TStringList.Create;
end;

procedure TProofObserver.Note(const What: string);
begin
  FEvents.Add(Escaped(What));
  FEvents.SaveToFile(FFolder + 'events');
end;

procedure TProofObserver.Missing(Sender: TObject; Kind: Integer; const Name: string);
begin
  Note('missing: ' + Name);
end;

procedure TProofObserver.WatchMissing(Owner: TComponent);
var
  I: Integer;
  Handler: TMethod;
begin
  Handler.Code := @TProofObserver.Missing;
  Handler.Data := Self;
  for I := 0 to Owner.ComponentCount - 1 do
  begin
    WatchMissing(Owner.Components[I]);
    if IsLanguageComponent(Owner.Components[I]) and IsPublishedProp(Owner.Components[I], 'OnMissing') then
      SetMethodProp(Owner.Components[I], 'OnMissing', Handler);
  end;
end;

procedure TProofObserver.MakeForm(FormClass: TComponentClass);
begin
  try
    FormClass.Create(Application);
    Note('made: ' + FormClass.ClassName);
  except
    on E: Exception do Note('not made: ' + FormClass.ClassName + ': ' + E.ClassName + ': ' + E.Message);
  end;
end;

function IsLive(FormClass: TComponentClass; Owner: TComponent): Boolean;
var
  I: Integer;
begin
  Result := Owner.ClassType = FormClass;
  for I := 0 to Owner.ComponentCount - 1 do
    Result := Result or IsLive(FormClass, Owner.Components[I]);
end;

function IsShown(FormClass: TComponentClass): Boolean;
var
  I: Integer;
begin
  Result := IsLive(FormClass, Application);
  for I := 0 to Screen.CustomFormCount - 1 do
    Result := Result or IsLive(FormClass, Screen.CustomForms[I]);
  for I := 0 to Screen.DataModuleCount - 1 do
    Result := Result or IsLive(FormClass, Screen.DataModules[I]);
end;

procedure TProofObserver.MakeForms;
var
  I: Integer;
begin
  for I := 0 to High(FormClasses) do
    if IsShown(FormClasses[I]) then
      Note('live: ' + FormClasses[I].ClassName)
    else
      MakeForm(FormClasses[I]);
end;

procedure TProofObserver.AddText(const Key, Path, Text: string);
begin
  if Text <> '' then FTexts.Add(Key + Path + #9 + FComponent + #9 + Path + #9 + Escaped(Text));
end;

procedure TProofObserver.AddProperty(Item: TObject; Info: PPropInfo; const Key, Path: string; Depth: Integer);
begin
  if (Info^.GetProc = nil) or ((Info^.Name = 'Name') and (Item is TComponent)) then Exit;
  case Info^.PropType^.Kind of
    tkSString, tkLString, tkAString: AddText(Key, Path, GetStrProp(Item, Info));
    tkWString, tkUString: AddText(Key, Path, UTF8Encode(GetUnicodeStrProp(Item, Info)));
    tkClass: AddObject(GetObjectProp(Item, Info), Key, Path, Depth + 1);
  end;
end;

procedure TProofObserver.AddPublished(Item: TObject; const Key, Path: string; Depth: Integer);
var
  Infos: PPropList;
  I, Count: Integer;
  Dot: string;
begin
  if Path = '' then Dot := '' else Dot := Path + '.';
  Count := GetPropList(Item, Infos);
  try
    for I := 0 to Count - 1 do
      try
        AddProperty(Item, Infos^[I], Key, Dot + Infos^[I]^.Name, Depth);
      except
        on E: Exception do Note('unread: ' + Key + Dot + Infos^[I]^.Name + ': ' + E.ClassName);
      end;
  finally
    if Count > 0 then FreeMem(Infos);
  end;
end;

procedure TProofObserver.AddObject(Item: TObject; const Key, Path: string; Depth: Integer);
var
  I: Integer;
begin
  if (Item = nil) or (Depth > Deepest) then Exit;
  if Item is TStrings then
    for I := 0 to TStrings(Item).Count - 1 do
      AddText(Key, Path + '[' + IntToStr(I) + ']', TStrings(Item)[I])
  else if Item is TCollection then
    for I := 0 to TCollection(Item).Count - 1 do
      AddPublished(TCollection(Item).Items[I], Key, Path + '[' + IntToStr(I) + ']', Depth)
  else if (Item is TPersistent) and (not (Item is TComponent) or (csSubComponent in TComponent(Item).ComponentStyle)) then
    AddPublished(Item, Key, Path, Depth);
end;

{ The first label or entry inside the widget. }
procedure FindText(Widget: PGtkWidget; Found: Pointer); cdecl;
begin
  if PString(Found)^ <> '' then Exit;
  if GTK_IS_LABEL(Widget) then
    PString(Found)^ := gtk_label_get_text(PGtkLabel(Widget))
  else if GTK_IS_ENTRY(Widget) then
    PString(Found)^ := gtk_entry_get_text(PGtkEntry(Widget))
  else if GTK_IS_CONTAINER(Widget) then
    gtk_container_forall(PGtkContainer(Widget), @FindText, Found);
end;

{ What the toolkit itself has to show; labels of the LCL are drawn and have no widget. }
procedure TProofObserver.AddWidget(Control: TWinControl; const Key: string);
var
  Text: string;
begin
  if not Control.HandleAllocated then Exit;
  Text := '';
  if Control is TCustomForm then
  begin
    if (Control.Parent = nil) and GTK_IS_WINDOW({%H-}Pointer(Control.Handle)) then
      Text := gtk_window_get_title({%H-}PGtkWindow(Control.Handle));
  end
  else if (Control is TButtonControl) or (Control is TCustomEdit) and not (Control is TCustomMemo) then
    FindText({%H-}PGtkWidget(Control.Handle), @Text);
  AddText(Key, 'widget', Text);
end;

procedure TProofObserver.AddComponent(Component: TComponent; const Key: string);
begin
  if IsLanguageComponent(Component) then Exit;
  FComponent := Component.ClassName;
  AddPublished(Component, Key + '.', '', 0);
  if Component is TWinControl then AddWidget(TWinControl(Component), Key + '.');
  AddOwned(Component, Key);
end;

procedure TProofObserver.AddOwned(Owner: TComponent; const Key: string);
var
  I, K, Number: Integer;
  Part: TComponent;
  Name: string;
begin
  for I := 0 to Owner.ComponentCount - 1 do
  begin
    Part := Owner.Components[I];
    if csSubComponent in Part.ComponentStyle then Continue;
    Name := Part.Name;
    if Name = '' then
    begin
      Number := 0;
      for K := 0 to I - 1 do
        Number := Number + Ord((Owner.Components[K].Name = '') and (Owner.Components[K].ClassType = Part.ClassType));
      Name := Part.ClassName + '#' + IntToStr(Number);
    end;
    AddComponent(Part, Key + '.' + Name);
  end;
end;

procedure TProofObserver.AddRoot(Root: TComponent; Seen: TStrings);
var
  Number: Integer;
begin
  if (Root.Owner <> nil) and (Root.Owner <> Application) then Exit;
  Number := Seen.Count;
  Seen.Add(Root.ClassName);
  if Seen.IndexOf(Root.ClassName) < Number then
    AddComponent(Root, Root.ClassName + '#' + IntToStr(Number))
  else
    AddComponent(Root, Root.ClassName);
end;

procedure TProofObserver.WriteTexts(const Name: string);
var
  I: Integer;
  Seen: TStringList;
begin
  FTexts.Clear;
  Seen := TStringList.Create;
  try
    for I := 0 to Screen.DataModuleCount - 1 do
      AddRoot(Screen.DataModules[I], Seen);
    for I := 0 to Screen.CustomFormCount - 1 do
      AddRoot(Screen.CustomForms[I], Seen);
    for I := 0 to Application.ComponentCount - 1 do
      if not (Application.Components[I] is TCustomForm) and not (Application.Components[I] is TDataModule) then
        AddRoot(Application.Components[I], Seen);
  finally
    Seen.Free;
  end;
  FTexts.SaveToFile(FFolder + Name + '.texts');
end;

procedure WriteForm(Form: TCustomForm; const FileName: string);
var
  Binary, Text: TMemoryStream;
begin
  Binary := TMemoryStream.Create;
  Text := TMemoryStream.Create;
  try
    Binary.WriteComponent(Form);
    Binary.Position := 0;
    LRSObjectBinaryToText(Binary, Text);
    Binary.SaveToFile(FileName + '.form');
    Text.SaveToFile(FileName + '.lfm');
  finally
    Binary.Free;
    Text.Free;
  end;
end;

procedure TProofObserver.WriteForms;
var
  I: Integer;
begin
  for I := 0 to Screen.CustomFormCount - 1 do
    try
      WriteForm(Screen.CustomForms[I], FFolder + Screen.CustomForms[I].ClassName);
    except
      on E: Exception do Note('not written: ' + Screen.CustomForms[I].ClassName + ': ' + E.ClassName + ': ' + E.Message);
    end;
end;

procedure ChangeWithin(Owner: TComponent; const Name: string);
var
  I: Integer;
begin
  for I := 0 to Owner.ComponentCount - 1 do
  begin
    ChangeWithin(Owner.Components[I], Name);
    if IsLanguageComponent(Owner.Components[I]) then SetStrProp(Owner.Components[I], 'Language', Name);
  end;
end;

procedure TProofObserver.ChangeLanguages(const Name: string);
var
  I: Integer;
begin
  ChangeWithin(Application, Name);
  for I := 0 to Screen.CustomFormCount - 1 do
    ChangeWithin(Screen.CustomForms[I], Name);
  Application.ProcessMessages;
end;

procedure TProofObserver.Observe;
begin
  MakeForms;
  WatchMissing(Application);
  Application.ProcessMessages;
  WriteTexts('first');
  ChangeLanguages('');
  WriteTexts('base');
  WriteForms;
  ChangeLanguages(GetEnvironmentVariable('TMLLANG_LANGUAGE'));
  WriteTexts('again');
  Note('done');
end;

initialization
  if GetEnvironmentVariable('PROOF_FOLDER') <> '' then
    Observer := TProofObserver.Create(IncludeTrailingPathDelimiter(GetEnvironmentVariable('PROOF_FOLDER')));

finalization
  if Observer <> nil then Observer.Note('ended');

end.

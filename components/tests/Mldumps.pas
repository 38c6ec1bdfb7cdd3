{ What a form shows: a line for each published text of each component, under the key that tables use, and where its
  windows stand. }
unit Mldumps;

{$MODE Delphi}

interface

uses
  Classes;

{ Components and properties in the order of streaming; empty texts are left out. A line break is \n. }
procedure DumpTexts(Root: TComponent; Lines: TStrings);

implementation

uses
  SysUtils, TypInfo, ComCtrls, Controls, Graphics, Mlcustomlang;

type
  TDump = class
  private
    FLines: TStrings;
    procedure Add(const Key, Value: string);
    procedure AddFont(const Key: string; Font: TFont);
    procedure AddCollection(const Key: string; Collection: TCollection);
    procedure AddListItems(const Key: string; Items: TListItems);
    procedure AddNode(const Key: string; Node: TTreeNode);
    procedure AddNodes(const Key: string; Nodes: TTreeNodes);
    procedure AddObject(const Key: string; Item: TObject);
    procedure AddProperties(const Prefix: string; Instance: TPersistent);
    procedure AddProperty(const Key: string; Instance: TPersistent; Info: PPropInfo);
    procedure AddComponents(const Path: string; Owner: TComponent);
  end;

procedure TDump.Add(const Key, Value: string);
var
  Shown: string;
begin
  Shown := StringReplace(Value, '\', '\\', [rfReplaceAll]);
  Shown := StringReplace(Shown, #13, '\r', [rfReplaceAll]);
  Shown := StringReplace(Shown, #10, '\n', [rfReplaceAll]);
  if Shown <> '' then FLines.Add(Key + '=' + Shown);
end;

function CharSetName(CharSet: Integer): string;
begin
  if not CharsetToIdent(CharSet, Result) then Result := IntToStr(CharSet);
end;

procedure TDump.AddFont(const Key: string; Font: TFont);
begin
  Add(Key + '.Name', Font.Name);
  Add(Key + '.Height', IntToStr(Font.Height));
  Add(Key + '.Style', StringReplace(GetSetProp(Font, 'Style', False), 'fs', '', [rfReplaceAll]));
  Add(Key + '.Charset', CharSetName(Font.CharSet));
end;

procedure TDump.AddCollection(const Key: string; Collection: TCollection);
var
  I: Integer;
begin
  for I := 0 to Collection.Count - 1 do
    AddProperties(Format('%s[%d].', [Key, I]), Collection.Items[I]);
end;

procedure TDump.AddListItems(const Key: string; Items: TListItems);
var
  I, K: Integer;
begin
  for I := 0 to Items.Count - 1 do
  begin
    Add(Format('%s[%d].Caption', [Key, I]), Items[I].Caption);
    for K := 0 to Items[I].SubItems.Count - 1 do
      Add(Format('%s[%d].SubItems[%d]', [Key, I, K]), Items[I].SubItems[K]);
  end;
end;

procedure TDump.AddNode(const Key: string; Node: TTreeNode);
var
  I: Integer;
begin
  Add(Key + '.Text', Node.Text);
  for I := 0 to Node.Count - 1 do
    AddNode(Format('%s[%d]', [Key, I]), Node.Items[I]);
end;

procedure TDump.AddNodes(const Key: string; Nodes: TTreeNodes);
var
  I: Integer;
begin
  for I := 0 to Nodes.TopLvlCount - 1 do
    AddNode(Format('%s[%d]', [Key, I]), Nodes.TopLvlItems[I]);
end;

procedure TDump.AddObject(const Key: string; Item: TObject);
begin
  if Item is TStrings then
    Add(Key, TrimRight(TStrings(Item).Text))
  else if Item is TFont then
    AddFont(Key, TFont(Item))
  else if Item is TCollection then
    AddCollection(Key, TCollection(Item))
  else if Item is TListItems then
    AddListItems(Key, TListItems(Item))
  else if Item is TTreeNodes then
    AddNodes(Key, TTreeNodes(Item))
  else if (Item is TPersistent) and
    (not (Item is TComponent) or (csSubComponent in TComponent(Item).ComponentStyle)) then
    AddProperties(Key + '.', TPersistent(Item));
end;

procedure TDump.AddProperty(const Key: string; Instance: TPersistent; Info: PPropInfo);
begin
  case Info^.PropType^.Kind of
    tkSString, tkLString, tkAString, tkWString, tkUString:
      if Info^.Name <> 'Name' then Add(Key, GetStrProp(Instance, Info));
    tkEnumeration:
      if Info^.Name = 'BiDiMode' then Add(Key, GetEnumProp(Instance, Info));
    tkInteger:
      if (Info^.Name = 'Left') and (Instance is TWinControl) then Add(Key, IntToStr(GetOrdProp(Instance, Info)));
    tkClass:
      AddObject(Key, GetObjectProp(Instance, Info));
  end;
end;

procedure TDump.AddProperties(const Prefix: string; Instance: TPersistent);
var
  Infos: PPropList;
  I, Count: Integer;
begin
  Count := GetPropList(Instance, Infos);
  if Count = 0 then Exit;
  try
    for I := 0 to Count - 1 do
      AddProperty(Prefix + Infos^[I]^.Name, Instance, Infos^[I]);
  finally
    FreeMem(Infos);
  end;
end;

procedure TDump.AddComponents(const Path: string; Owner: TComponent);
var
  I: Integer;
  Component: TComponent;
begin
  for I := 0 to Owner.ComponentCount - 1 do
  begin
    Component := Owner.Components[I];
    if (Component is TmlCustomLang) or (csSubComponent in Component.ComponentStyle) then Continue;
    AddProperties(Path + Component.Name + '.', Component);
    AddComponents(Path + Component.Name + '.', Component);
  end;
end;

procedure DumpTexts(Root: TComponent; Lines: TStrings);
var
  Dump: TDump;
begin
  Dump := TDump.Create;
  try
    Dump.FLines := Lines;
    Dump.AddProperties('.', Root);
    Dump.AddComponents('', Root);
  finally
    Dump.Free;
  end;
end;

end.

{ Items of list views and nodes of trees of the LCL, whose texts are not published. }
unit Mlviewitems;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

implementation

uses
  Classes, SysUtils, ComCtrls, Mlpath;

type
  TmlListItemAccess = class(TmlItemAccess)
  public
    function Knows(Instance: TPersistent): Boolean; override;
    function ItemAt(List: TPersistent; Index: Integer): TPersistent; override;
    function ListOf(Item: TPersistent; const Name: string): TPersistent; override;
    function ReadText(Item: TPersistent; const Name: string; out Text: string): Boolean; override;
    procedure WriteText(Item: TPersistent; const Name, Text: string); override;
  end;

  { The items of a node are its children. }
  TmlTreeNodeAccess = class(TmlItemAccess)
  public
    function Knows(Instance: TPersistent): Boolean; override;
    function ItemAt(List: TPersistent; Index: Integer): TPersistent; override;
    function ListOf(Item: TPersistent; const Name: string): TPersistent; override;
    function ReadText(Item: TPersistent; const Name: string; out Text: string): Boolean; override;
    procedure WriteText(Item: TPersistent; const Name, Text: string); override;
  end;

function TmlListItemAccess.Knows(Instance: TPersistent): Boolean;
begin
  Result := (Instance is TListItems) or (Instance is TListItem);
end;

function TmlListItemAccess.ItemAt(List: TPersistent; Index: Integer): TPersistent;
begin
  Result := nil;
  if (List is TListItems) and (Index < TListItems(List).Count) then Result := TListItems(List)[Index];
end;

function TmlListItemAccess.ListOf(Item: TPersistent; const Name: string): TPersistent;
begin
  Result := nil;
  if (Item is TListItem) and SameText(Name, 'SubItems') then Result := TListItem(Item).SubItems;
end;

function TmlListItemAccess.ReadText(Item: TPersistent; const Name: string; out Text: string): Boolean;
begin
  Result := (Item is TListItem) and SameText(Name, 'Caption');
  if Result then Text := TListItem(Item).Caption;
end;

procedure TmlListItemAccess.WriteText(Item: TPersistent; const Name, Text: string);
begin
  TListItem(Item).Caption := Text;
end;

function TmlTreeNodeAccess.Knows(Instance: TPersistent): Boolean;
begin
  Result := (Instance is TTreeNodes) or (Instance is TTreeNode);
end;

function TopLevelNode(Nodes: TTreeNodes; Index: Integer): TTreeNode;
begin
  Result := nil;
  if (Index >= 0) and (Index < Nodes.TopLvlCount) then Result := Nodes.TopLvlItems[Index];
end;

function TmlTreeNodeAccess.ItemAt(List: TPersistent; Index: Integer): TPersistent;
begin
  Result := nil;
  if List is TTreeNodes then
    Result := TopLevelNode(TTreeNodes(List), Index)
  else if Index < TTreeNode(List).Count then
    Result := TTreeNode(List)[Index];
end;

function TmlTreeNodeAccess.ListOf(Item: TPersistent; const Name: string): TPersistent;
begin
  Result := nil;
end;

function TmlTreeNodeAccess.ReadText(Item: TPersistent; const Name: string; out Text: string): Boolean;
begin
  Result := (Item is TTreeNode) and SameText(Name, 'Text');
  if Result then Text := TTreeNode(Item).Text;
end;

procedure TmlTreeNodeAccess.WriteText(Item: TPersistent; const Name, Text: string);
begin
  TTreeNode(Item).Text := Text;
end;

initialization
  RegisterItemAccess(TmlListItemAccess.Create);
  RegisterItemAccess(TmlTreeNodeAccess.Create);

end.

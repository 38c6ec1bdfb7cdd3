{ Items of list views and nodes of trees of the LCL, whose texts are not published. }
unit Mlviewitems;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

implementation

uses
  Classes, SysUtils, ComCtrls, Mlpath, Mlvieworder;

type
  TmlListItemAccess = class(TmlViewAccess)
  public
    function Knows(Instance: TPersistent): Boolean; override;
    function ViewOf(List: TPersistent): TComponent; override;
    function CountOf(List: TPersistent): Integer; override;
    function ShownAt(List: TPersistent; Index: Integer): TPersistent; override;
    function ListOf(Item: TPersistent; const Name: string): TPersistent; override;
    function ReadText(Item: TPersistent; const Name: string; out Text: string): Boolean; override;
    procedure WriteText(Item: TPersistent; const Name, Text: string); override;
  end;

  { The items of a node are its children. }
  TmlTreeNodeAccess = class(TmlViewAccess)
  public
    function Knows(Instance: TPersistent): Boolean; override;
    function ViewOf(List: TPersistent): TComponent; override;
    function CountOf(List: TPersistent): Integer; override;
    function ShownAt(List: TPersistent; Index: Integer): TPersistent; override;
    function ListOf(Item: TPersistent; const Name: string): TPersistent; override;
    function ReadText(Item: TPersistent; const Name: string; out Text: string): Boolean; override;
    procedure WriteText(Item: TPersistent; const Name, Text: string); override;
  end;

function TmlListItemAccess.Knows(Instance: TPersistent): Boolean;
begin
  Result := (Instance is TListItems) or (Instance is TListItem);
end;

{ Only the items of a view are a list; a further column has strings. }
function TmlListItemAccess.ViewOf(List: TPersistent): TComponent;
begin
  Result := nil;
  if List is TListItems then Result := TListItems(List).Owner;
end;

function TmlListItemAccess.CountOf(List: TPersistent): Integer;
begin
  Result := TListItems(List).Count;
end;

function TmlListItemAccess.ShownAt(List: TPersistent; Index: Integer): TPersistent;
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

function TmlTreeNodeAccess.ViewOf(List: TPersistent): TComponent;
begin
  if List is TTreeNodes then Result := TTreeNodes(List).Owner else Result := TTreeNode(List).TreeView;
end;

function TmlTreeNodeAccess.CountOf(List: TPersistent): Integer;
begin
  if List is TTreeNodes then Result := TTreeNodes(List).TopLvlCount else Result := TTreeNode(List).Count;
end;

function TmlTreeNodeAccess.ShownAt(List: TPersistent; Index: Integer): TPersistent;
begin
  Result := nil;
  if (Index < 0) or (Index >= CountOf(List)) then Exit;
  if List is TTreeNodes then Result := TTreeNodes(List).TopLvlItems[Index] else Result := TTreeNode(List)[Index];
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

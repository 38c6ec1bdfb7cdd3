{ What list boxes and check groups of the LCL know of an item: selected, checked, enabled. }
unit Mlcheckitems;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

implementation

uses
  CheckLst, ExtCtrls, StdCtrls, Mlitemskeeper;

const
  SelectedFlag = 1;
  EnabledFlag = 2;
  { The states of a check box stand above. }
  StateUnit = 4;

type
  TmlListBoxKeeper = class(TmlItemsKeeper)
  protected
    function FlagsOf(Index: Integer): Integer; override;
    procedure SetFlags(Index, Flags: Integer); override;
  end;

  TmlCheckListBoxKeeper = class(TmlListBoxKeeper)
  protected
    function FlagsOf(Index: Integer): Integer; override;
    procedure SetFlags(Index, Flags: Integer); override;
  end;

  TmlCheckGroupKeeper = class(TmlItemsKeeper)
  protected
    function FlagsOf(Index: Integer): Integer; override;
    procedure SetFlags(Index, Flags: Integer); override;
  end;

function TmlListBoxKeeper.FlagsOf(Index: Integer): Integer;
begin
  Result := 0;
  with TCustomListBox(Owner) do
    if MultiSelect and Selected[Index] then Result := SelectedFlag;
end;

procedure TmlListBoxKeeper.SetFlags(Index, Flags: Integer);
begin
  with TCustomListBox(Owner) do
    if MultiSelect then Selected[Index] := Flags and SelectedFlag <> 0;
end;

function TmlCheckListBoxKeeper.FlagsOf(Index: Integer): Integer;
begin
  with TCustomCheckListBox(Owner) do
    Result := inherited FlagsOf(Index) + Ord(ItemEnabled[Index]) * EnabledFlag + Ord(State[Index]) * StateUnit;
end;

procedure TmlCheckListBoxKeeper.SetFlags(Index, Flags: Integer);
begin
  inherited SetFlags(Index, Flags);
  TCustomCheckListBox(Owner).ItemEnabled[Index] := Flags and EnabledFlag <> 0;
  TCustomCheckListBox(Owner).State[Index] := TCheckBoxState(Flags div StateUnit);
end;

function TmlCheckGroupKeeper.FlagsOf(Index: Integer): Integer;
begin
  with TCustomCheckGroup(Owner) do
    Result := Ord(CheckEnabled[Index]) * EnabledFlag + Ord(Checked[Index]) * StateUnit;
end;

procedure TmlCheckGroupKeeper.SetFlags(Index, Flags: Integer);
begin
  TCustomCheckGroup(Owner).CheckEnabled[Index] := Flags and EnabledFlag <> 0;
  TCustomCheckGroup(Owner).Checked[Index] := Flags >= StateUnit;
end;

initialization
  RegisterItemsKeeper(TCustomListBox, TmlListBoxKeeper);
  RegisterItemsKeeper(TCustomCheckListBox, TmlCheckListBoxKeeper);
  RegisterItemsKeeper(TCustomCheckGroup, TmlCheckGroupKeeper);

end.

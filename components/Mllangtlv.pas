{ A localization component with a table for items of list views and nodes of trees. }
unit Mllangtlv;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlcustomlang{$IFDEF FPC}, Mlvisual{$ENDIF};

type
  TmlLangTLV = class(TmlCustomLang)
  private
    function GetItems: TStrings;
    procedure SetItems(Value: TStrings);
  published
    property ListView_TreeView_Items: TStrings read GetItems write SetItems;
  end;

implementation

uses
  Mltables;

function TmlLangTLV.GetItems: TStrings;
begin
  Result := Tables[stListView_TreeView_Items];
end;

procedure TmlLangTLV.SetItems(Value: TStrings);
begin
  Tables[stListView_TreeView_Items].Assign(Value);
end;

initialization
  RegisterClass(TmlLangTLV);

end.

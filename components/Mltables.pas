{ The tables of a component as it streams them: lists of raw lines. }
unit Mltables;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes;

type
  TStringsType = (stCaptions, stHints, stDisplayLabels, stFonts, stMultiLines, stDlgsCaptions, stStrings,
    stOtherStrings, stLocales, stCollections, stCharSets, stListView_TreeView_Items);

  TmlTables = class
  private
    FLists: array[TStringsType] of TStringList;
    FOnChange: TNotifyEvent;
    function GetList(Kind: TStringsType): TStrings;
    procedure ListChanged(Sender: TObject);
  public
    constructor Create;
    destructor Destroy; override;
    property Lists[Kind: TStringsType]: TStrings read GetList; default;
    { Sender is the list. }
    property OnChange: TNotifyEvent read FOnChange write FOnChange;
  end;

{ The property of a component that holds the table. }
function TableName(Kind: TStringsType): string;
{ Without regard to case; False for a name that is no table's. }
function FindTable(const Name: string; out Kind: TStringsType): Boolean;

implementation

uses
  TypInfo, Mltext;

function TableName(Kind: TStringsType): string;
begin
  Result := Copy(GetEnumName(TypeInfo(TStringsType), Ord(Kind)), 3, MaxInt);
end;

function FindTable(const Name: string; out Kind: TStringsType): Boolean;
var
  Candidate: TStringsType;
begin
  Kind := Low(Kind);
  Result := False;
  for Candidate := Low(Candidate) to High(Candidate) do
    if SameIgnoringCase(TableName(Candidate), Name) then
    begin
      Kind := Candidate;
      Result := True;
    end;
end;

constructor TmlTables.Create;
var
  Kind: TStringsType;
begin
  inherited Create;
  for Kind := Low(Kind) to High(Kind) do
  begin
    FLists[Kind] := TStringList.Create;
    FLists[Kind].OnChange := ListChanged;
  end;
end;

destructor TmlTables.Destroy;
var
  Kind: TStringsType;
begin
  FOnChange := nil;
  for Kind := Low(Kind) to High(Kind) do
    FLists[Kind].Free;
  inherited Destroy;
end;

function TmlTables.GetList(Kind: TStringsType): TStrings;
begin
  Result := FLists[Kind];
end;

procedure TmlTables.ListChanged(Sender: TObject);
begin
  if Assigned(FOnChange) then FOnChange(Sender);
end;

end.

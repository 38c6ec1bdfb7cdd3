{ What is recorded of translations: the exceptions among their states, found by table, place and key. }
unit Mlmarks;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlmap, Mltables, Mltranslationfile;

type
  TmlMark = record
    { '' for none. }
    State, Former: string;
  end;

  TmlMarks = class
  private
    FIndex: TmlMap;
    FMarks: array of TmlMark;
    FUnknown: TStringList;
    procedure ReadLine(const Line, Delimiter: string);
  public
    constructor Create;
    destructor Destroy; override;
    { Lines as a component with this delimiter stores them. }
    procedure ReadLines(Lines: TStrings; const Delimiter: string);
    { Of what stands twice the last counts. }
    procedure Add(const State: TmlFileState);
    { Taken once: of a key that stands twice the first has it. }
    function Take(Kind: TStringsType; Place: Integer; const Key: string): TmlMark;
    { Lines that are no records; they stay as they are. }
    property Unknown: TStringList read FUnknown;
  end;

function NoMark: TmlMark;
function MarkLine(const State: TmlFileState; const Delimiter: string): string;

implementation

uses
  SysUtils, Mlcodec;

function NoMark: TmlMark;
begin
  Result.State := '';
  Result.Former := '';
end;

function MarkLine(const State: TmlFileState; const Delimiter: string): string;
begin
  Result := JoinFields([TableName(State.Kind), State.Key, IntToStr(State.Place), State.State, State.Former], Delimiter);
end;

function KeyOf(Kind: TStringsType; Place: Integer; const Key: string): string;
begin
  Result := Format('%d:%d:%s', [Ord(Kind), Place, Key]);
end;

constructor TmlMarks.Create;
begin
  inherited Create;
  FIndex := TmlMap.Create(0);
  FUnknown := TStringList.Create;
end;

destructor TmlMarks.Destroy;
begin
  FIndex.Free;
  FUnknown.Free;
  inherited Destroy;
end;

procedure TmlMarks.ReadLine(const Line, Delimiter: string);
var
  Fields: TmlFields;
  State: TmlFileState;
  IsRecord: Boolean;
begin
  Fields := SplitFields(Line, Delimiter);
  IsRecord := (Length(Fields) = 5) and FindTable(Fields[0], State.Kind) and (StateNumber(Fields[3]) >= 0);
  if IsRecord then State.Place := StrToIntDef(Fields[2], 0);
  if not IsRecord or (State.Place < 2) then
  begin
    FUnknown.Add(Line);
    Exit;
  end;
  State.Key := Fields[1];
  State.State := Fields[3];
  State.Former := Fields[4];
  Add(State);
end;

procedure TmlMarks.ReadLines(Lines: TStrings; const Delimiter: string);
var
  I: Integer;
begin
  for I := 0 to Lines.Count - 1 do
    ReadLine(Lines[I], Delimiter);
end;

procedure TmlMarks.Add(const State: TmlFileState);
var
  Index: Integer;
begin
  Index := FIndex.Add(KeyOf(State.Kind, State.Place, State.Key));
  if Index >= Length(FMarks) then SetLength(FMarks, 2 * Index + 8);
  FMarks[Index].State := State.State;
  FMarks[Index].Former := State.Former;
end;

function TmlMarks.Take(Kind: TStringsType; Place: Integer; const Key: string): TmlMark;
var
  Index: Integer;
begin
  Result := NoMark;
  if FIndex.Count = 0 then Exit;
  Index := FIndex.Find(KeyOf(Kind, Place, Key));
  if Index < 0 then Exit;
  Result := FMarks[Index];
  FMarks[Index] := NoMark;
end;

end.

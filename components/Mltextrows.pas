{ The texts of a form as rows for a person to edit, a column a language. What a person does not translate is left out:
  fonts, character sets and the tags of languages. }
unit Mltextrows;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mllangtexts;

type
  PmlTextEntry = ^TmlTextEntry;

  TmlTextRow = record
    Entry: PmlTextEntry;
    { As it was. }
    Former: TmlMarkedTexts;
  end;

  { Rows count from 0, and places of languages, the base language's first. }
  TmlTextRows = class
  private
    FTexts: TmlLangTexts;
    FRows: array of TmlTextRow;
    FShown: array of Integer;
    procedure AddTable(var Entries: TmlTextEntries);
    function Matches(const Entry: TmlTextEntry; const Part: string): Boolean;
    function GetText(Row, Place: Integer): string;
    procedure SetText(Row, Place: Integer; const Value: string);
  public
    { What is edited is edited in the texts, whose entries have to stay where they are. }
    constructor Create(Texts: TmlLangTexts);
    { Shows the rows with this part, without regard to case, in the key or a text; '' for all. }
    procedure Filter(const Part: string);
    { Of the rows that are shown. }
    function Count: Integer;
    function Key(Row: Integer): string;
    { A translation that is written anew is no longer in doubt; one that becomes the base text is so on purpose. }
    property Texts[Row, Place: Integer]: string read GetText write SetText;
    { Whether a text is another one than at first. }
    function IsChanged: Boolean;
    { Whether the language is written from right to left. }
    function IsRightToLeft(Place: Integer): Boolean;
  end;

implementation

uses
  SysUtils, Mldirection, Mlmarks, Mltables, Mltext;

constructor TmlTextRows.Create(Texts: TmlLangTexts);
var
  Kind: TStringsType;
begin
  inherited Create;
  FTexts := Texts;
  for Kind := Low(Kind) to High(Kind) do
    if not (Kind in [stFonts, stLocales, stCharSets]) then AddTable(FTexts.Tables[Kind]);
  AddTable(FTexts.Extended);
  Filter('');
end;

procedure TmlTextRows.AddTable(var Entries: TmlTextEntries);
var
  I: Integer;
begin
  for I := 0 to High(Entries) do
    if Entries[I].Key <> '' then
    begin
      SetLength(FRows, Length(FRows) + 1);
      FRows[High(FRows)].Entry := @Entries[I];
      FRows[High(FRows)].Former := Copy(Entries[I].Texts);
    end;
end;

function TmlTextRows.Matches(const Entry: TmlTextEntry; const Part: string): Boolean;
var
  Place: Integer;
begin
  Result := (Part = '') or (Pos(Part, UpperText(Entry.Key)) > 0);
  for Place := 0 to High(Entry.Texts) do
    Result := Result or (Pos(Part, UpperText(Entry.Texts[Place].Text)) > 0);
end;

procedure TmlTextRows.Filter(const Part: string);
var
  I, Found: Integer;
begin
  SetLength(FShown, Length(FRows));
  Found := 0;
  for I := 0 to High(FRows) do
    if Matches(FRows[I].Entry^, UpperText(Part)) then
    begin
      FShown[Found] := I;
      Inc(Found);
    end;
  SetLength(FShown, Found);
end;

function TmlTextRows.Count: Integer;
begin
  Result := Length(FShown);
end;

function TmlTextRows.Key(Row: Integer): string;
begin
  Result := FRows[FShown[Row]].Entry^.Key;
end;

function TmlTextRows.GetText(Row, Place: Integer): string;
begin
  Result := TextAt(FRows[FShown[Row]].Entry^, Place).Text;
end;

procedure TmlTextRows.SetText(Row, Place: Integer; const Value: string);
var
  Entry: PmlTextEntry;
  Edited: TmlMarkedText;
begin
  Entry := FRows[FShown[Row]].Entry;
  if TextAt(Entry^, Place).Text = Value then Exit;
  Edited.Text := Value;
  Edited.Mark := NoMark;
  if (Value <> '') and (Value = TextAt(Entry^, 0).Text) then Edited.Mark.State := 'same';
  if (Place < Length(FRows[FShown[Row]].Former)) and (FRows[FShown[Row]].Former[Place].Text = Value) then
    Edited := FRows[FShown[Row]].Former[Place];
  SetTextAt(Entry^, Place, Edited);
end;

function TmlTextRows.IsChanged: Boolean;
var
  I, Place: Integer;
  Former: string;
begin
  Result := False;
  for I := 0 to High(FRows) do
    for Place := 0 to High(FRows[I].Entry^.Texts) do
    begin
      Former := '';
      if Place < Length(FRows[I].Former) then Former := FRows[I].Former[Place].Text;
      Result := Result or (FRows[I].Entry^.Texts[Place].Text <> Former);
    end;
end;

function TmlTextRows.IsRightToLeft(Place: Integer): Boolean;
var
  I: Integer;
begin
  Result := False;
  for I := 0 to High(FTexts.Tables[stLocales]) do
    if SameText(FTexts.Tables[stLocales][I].Key, '.Locale') then
      Result := Mldirection.IsRightToLeft(TextAt(FTexts.Tables[stLocales][I], Place).Text);
end;

end.

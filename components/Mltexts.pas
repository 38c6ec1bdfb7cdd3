{ The texts of one language by their IDs, made once and never changed, so that any thread may read them. }
unit Mltexts;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlmap;

type
  TmlTexts = class
  private
    FIDs: TmlMap;
    FTexts: array of string;
  public
    { From the lines of a table; Place is the language's, 1 for the base language, whose text stands in for one that
      is empty. Of an ID that stands twice the first counts. }
    constructor Create(Lines: TStrings; const Delimiter: string; Place: Integer);
    destructor Destroy; override;
    function Find(const ID: string; out Text: string): Boolean;
  end;

{ The value of a language in a line, the base text where it is empty or missing. }
function ValueIn(const Line, Delimiter: string; Place: Integer): string;

implementation

uses
  Mlcodec;

function ValueIn(const Line, Delimiter: string; Place: Integer): string;
begin
  FieldAt(Line, Delimiter, Place, Result);
  if (Result = '') and (Place <> 1) then FieldAt(Line, Delimiter, 1, Result);
end;

constructor TmlTexts.Create(Lines: TStrings; const Delimiter: string; Place: Integer);
var
  I, Count: Integer;
  ID: string;
begin
  inherited Create;
  FIDs := TmlMap.Create(Lines.Count);
  SetLength(FTexts, Lines.Count);
  for I := 0 to Lines.Count - 1 do
  begin
    FieldAt(Lines[I], Delimiter, 0, ID);
    Count := FIDs.Count;
    if FIDs.Add(ID) = Count then FTexts[Count] := ValueIn(Lines[I], Delimiter, Place);
  end;
end;

destructor TmlTexts.Destroy;
begin
  FIDs.Free;
  inherited Destroy;
end;

function TmlTexts.Find(const ID: string; out Text: string): Boolean;
var
  Index: Integer;
begin
  Index := FIDs.Find(ID);
  Result := Index >= 0;
  if Result then Text := FTexts[Index] else Text := '';
end;

end.

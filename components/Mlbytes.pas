{ Bytes put together from many pieces. }
unit Mlbytes;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

type
  TmlBytes = class
  private
    FBuffer: string;
    FCount, FBegin: Integer;
  public
    procedure Add(const Piece: string);
    { A number in so many bytes, the lowest one first. }
    procedure AddNumber(Number: Int64; Size: Integer);
    { Behind its size in four bytes. }
    procedure AddText(const Text: string);
    { A tag, and the size of what is added until EndPart. Parts stand in no others. }
    procedure BeginPart(Tag: Char);
    procedure EndPart;
    { All that was added; frees the object. }
    function Finish: string;
  end;

implementation

procedure TmlBytes.Add(const Piece: string);
begin
  if Piece = '' then Exit;
  if FCount + Length(Piece) > Length(FBuffer) then SetLength(FBuffer, 2 * (FCount + Length(Piece)));
  Move(Piece[1], FBuffer[FCount + 1], Length(Piece));
  Inc(FCount, Length(Piece));
end;

procedure TmlBytes.AddNumber(Number: Int64; Size: Integer);
begin
  while Size > 0 do
  begin
    Add(Chr(Number and $FF));
    Number := Number shr 8;
    Dec(Size);
  end;
end;

procedure TmlBytes.AddText(const Text: string);
begin
  AddNumber(Length(Text), 4);
  Add(Text);
end;

procedure TmlBytes.BeginPart(Tag: Char);
begin
  Add(Tag);
  AddNumber(0, 4);
  FBegin := FCount;
end;

procedure TmlBytes.EndPart;
var
  Filled: Integer;
begin
  Filled := FCount;
  FCount := FBegin - 4;
  AddNumber(Filled - FBegin, 4);
  FCount := Filled;
end;

function TmlBytes.Finish: string;
begin
  SetLength(FBuffer, FCount);
  Result := FBuffer;
  Free;
end;

end.

{ Fonts, known by what they publish. A value gives Name, Height and Style, or some of these; a part that is not
  given is the base language's, and one that this does not give either is as it was before the first change. Heights are
  those of the design; a form that is scaled to its screen scales them. }
unit Mlfontaccess;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlpath, Mlaccess;

type
  TmlFontPart = (fpName, fpHeight, fpStyle);
  TmlFontParts = set of TmlFontPart;

  TmlFont = record
    Given: TmlFontParts;
    Name: string;
    Height: Integer;
    Style: Integer;
  end;

  { From the design to the screen: Screen / Design. }
  TmlScale = record
    Screen, Design: Integer;
  end;

  TmlFontAccess = class(TmlAccess)
  private
    FNoted: Boolean;
    FFormer: TmlFont;
    FFormerParentFont: Boolean;
    { The scale when the font was read last. }
    FScale: TmlScale;
    procedure Note(const Place: TmlPlace; const Value: TmlValue);
    function Former(const Place: TmlPlace; const Value: TmlValue): TmlFont;
    function Wanted(const Place: TmlPlace; const Value: TmlValue): TmlFont;
  public
    function Read(const Place: TmlPlace): string; override;
    function Shows(const Place: TmlPlace; const Value: TmlValue): Boolean; override;
    function StillReads(const Place: TmlPlace; const Earlier: string): Boolean; override;
    function MayTake(const Place: TmlPlace; const Value: TmlValue): Boolean; override;
    procedure Write(const Place: TmlPlace; const Value: TmlValue); override;
  end;

function IsFont(Item: TObject): Boolean;

var
  { Of a font that a form gives no name; set by the unit of the visual library. }
  DefaultFontName: string = '';

implementation

uses
  SysUtils, TypInfo;

function IsFont(Item: TObject): Boolean;
begin
  Result := (Item is TPersistent) and IsPublishedProp(Item, 'Name') and IsPublishedProp(Item, 'Height') and
    IsPublishedProp(Item, 'Style') and (PropType(Item, 'Style') = tkSet);
end;

{ The style of words such as "Bold,Italic", which the elements of the set are called without their prefix. }
function StyleOf(const Words: string; Font: TObject): Integer;
var
  Elements: PTypeInfo;
  I: Integer;
begin
  Elements := GetTypeData(GetPropInfo(Font, 'Style')^.PropType)^.CompType;
  Result := 0;
  for I := GetTypeData(Elements)^.MinValue to GetTypeData(Elements)^.MaxValue do
    if Pos(',' + Copy(LowerCase(GetEnumName(Elements, I)), 3, MaxInt) + ',', ',' + LowerCase(Words) + ',') > 0 then
      Result := Result or (1 shl I);
end;

procedure ApplySetting(const Setting: string; Font: TObject; var Value: TmlFont);
var
  Name, Text: string;
begin
  Name := LowerCase(Copy(Setting, 1, Pos('=', Setting) - 1));
  Text := Copy(Setting, Length(Name) + 2, MaxInt);
  if Name = 'name' then
  begin
    Include(Value.Given, fpName);
    Value.Name := Text;
  end
  else if (Name = 'height') and TryStrToInt(Text, Value.Height) then
    Include(Value.Given, fpHeight)
  else if Name = 'style' then
  begin
    Include(Value.Given, fpStyle);
    Value.Style := StyleOf(Text, Font);
  end;
end;

{ A semicolon ends a setting, a backslash takes the sign behind it as it is. }
function ParseFont(const Text: string; Font: TObject): TmlFont;
var
  Setting: string;
  I: Integer;
begin
  Result := Default(TmlFont);
  Setting := '';
  I := 1;
  while I <= Length(Text) do
  begin
    if Text[I] = ';' then
    begin
      ApplySetting(Setting, Font, Result);
      Setting := '';
    end
    else
    begin
      if (Text[I] = '\') and (I < Length(Text)) then Inc(I);
      Setting := Setting + Text[I];
    end;
    Inc(I);
  end;
  ApplySetting(Setting, Font, Result);
end;

function FontAt(const Place: TmlPlace): TObject;
begin
  Result := GetObjectProp(Place.Instance, Place.Info);
end;

type
  TmlOwned = class(TPersistent)
  end;

{ The outermost owner that is scaled tells: frames on a form follow it. }
function ScaleAt(const Place: TmlPlace): TmlScale;
var
  Owner: TPersistent;
begin
  Result.Screen := 1;
  Result.Design := 1;
  Owner := Place.Instance;
  while Owner <> nil do
  begin
    if IsPublishedProp(Owner, 'PixelsPerInch') and IsPublishedProp(Owner, 'DesignTimePPI') then
    begin
      Result.Screen := GetOrdProp(Owner, 'PixelsPerInch');
      Result.Design := GetOrdProp(Owner, 'DesignTimePPI');
    end;
    Owner := TmlOwned(Owner).GetOwner;
  end;
end;

function ScaledHeight(Height, Multiplier, Divisor: Integer): Integer;
begin
  Result := Height;
  if (Multiplier <> Divisor) and (Divisor <> 0) then Result := Round(Height * Multiplier / Divisor);
end;

function ReadFont(const Place: TmlPlace): TmlFont;
var
  Font: TObject;
  Scale: TmlScale;
begin
  Font := FontAt(Place);
  Scale := ScaleAt(Place);
  Result.Given := [fpName, fpHeight, fpStyle];
  Result.Name := GetStrProp(Font, 'Name');
  Result.Height := ScaledHeight(GetOrdProp(Font, 'Height'), Scale.Design, Scale.Screen);
  Result.Style := GetOrdProp(Font, 'Style');
end;

{ The font; what it does not give is the other's. }
function Over(const Font, Other: TmlFont): TmlFont;
begin
  Result := Font;
  if not (fpName in Font.Given) then Result.Name := Other.Name;
  if not (fpHeight in Font.Given) then Result.Height := Other.Height;
  if not (fpStyle in Font.Given) then Result.Style := Other.Style;
  Result.Given := Font.Given + Other.Given;
end;

function DifferingParts(const Font, Other: TmlFont): TmlFontParts;
begin
  Result := [];
  if Font.Name <> Other.Name then Include(Result, fpName);
  if Font.Height <> Other.Height then Include(Result, fpHeight);
  if Font.Style <> Other.Style then Include(Result, fpStyle);
end;

function ReadParentFont(const Place: TmlPlace): Boolean;
begin
  Result := IsPublishedProp(Place.Instance, 'ParentFont') and (GetOrdProp(Place.Instance, 'ParentFont') <> 0);
end;

function FontText(const Font: TmlFont): string;
begin
  Result := Format('Height=%d;Style=%d;Name=%s', [Font.Height, Font.Style, Font.Name]);
end;

function TmlFontAccess.Read(const Place: TmlPlace): string;
begin
  FScale := ScaleAt(Place);
  Result := FontText(ReadFont(Place));
end;

{ Scaling gives a font without a height one. }
function TmlFontAccess.StillReads(const Place: TmlPlace; const Earlier: string): Boolean;
var
  Shown: TmlFont;
begin
  Shown := ReadFont(Place);
  Result := FontText(Shown) = Earlier;
  if Result or (ScaleAt(Place).Screen = FScale.Screen) then Exit;
  Shown.Height := 0;
  Result := FontText(Shown) = Earlier;
end;

{ As it was before the first change, but for what the language gave in which it stood then. }
function TmlFontAccess.Former(const Place: TmlPlace; const Value: TmlValue): TmlFont;
var
  Plain: TmlFont;
begin
  Result := FFormer;
  if FNoted then Exit;
  Plain := Default(TmlFont);
  Plain.Given := ParseFont(Value.First, FontAt(Place)).Given;
  Plain.Name := DefaultFontName;
  Result := Over(Plain, ReadFont(Place));
end;

function TmlFontAccess.Wanted(const Place: TmlPlace; const Value: TmlValue): TmlFont;
begin
  Result := Over(ParseFont(Value.Text, FontAt(Place)), ParseFont(Value.Base, FontAt(Place)));
  Result := Over(Result, Former(Place, Value));
end;

function TmlFontAccess.Shows(const Place: TmlPlace; const Value: TmlValue): Boolean;
begin
  Result := (DifferingParts(ReadFont(Place), Wanted(Place, Value)) = []) and
    not (FNoted and Value.IsBase and FFormerParentFont and not ReadParentFont(Place));
end;

{ The parts in which the font differs from the class's and from those of its owners, with which it may begin. }
function OwnParts(const Place: TmlPlace; const Font: TmlFont): TmlFontParts;
var
  Plain: TmlFont;
  Around: TmlPlace;
begin
  Plain := Default(TmlFont);
  Plain.Name := DefaultFontName;
  Result := DifferingParts(Font, Plain);
  Around := Place;
  Around.Instance := TmlOwned(Place.Instance).GetOwner;
  while (Around.Instance <> nil) and (Result <> []) do
  begin
    Around.Info := GetPropInfo(Around.Instance, 'Font');
    if (Around.Info <> nil) and (Around.Info^.PropType^.Kind = tkClass) and IsFont(FontAt(Around)) then
      Result := Result * DifferingParts(Font, ReadFont(Around));
    Around.Instance := TmlOwned(Around.Instance).GetOwner;
  end;
end;

{ A part of which the streamed value says nothing is somebody's if the font has it of its own. Of a height nothing
  can be said once the form is scaled, which gives one to every font. }
function TmlFontAccess.MayTake(const Place: TmlPlace; const Value: TmlValue): Boolean;
var
  Parts: TmlFontParts;
  Scale: TmlScale;
begin
  Result := True;
  Parts := ParseFont(Value.Text, FontAt(Place)).Given - ParseFont(Value.Base, FontAt(Place)).Given -
    ParseFont(Value.First, FontAt(Place)).Given;
  Scale := ScaleAt(Place);
  if Scale.Screen <> Scale.Design then Exclude(Parts, fpHeight);
  if (Parts = []) or FNoted and FFormerParentFont or not FNoted and ReadParentFont(Place) then Exit;
  Result := Parts * OwnParts(Place, Former(Place, Value)) = [];
end;

procedure TmlFontAccess.Note(const Place: TmlPlace; const Value: TmlValue);
begin
  FFormer := Former(Place, Value);
  FNoted := True;
  FFormerParentFont := ReadParentFont(Place);
end;

{ A font of its own switches ParentFont off; the base language puts it back. }
procedure TmlFontAccess.Write(const Place: TmlPlace; const Value: TmlValue);
var
  Font: TObject;
  Wish: TmlFont;
  Scale: TmlScale;
begin
  Font := FontAt(Place);
  if not FNoted then Note(Place, Value);
  Wish := Wanted(Place, Value);
  SetStrProp(Font, 'Name', Wish.Name);
  Scale := ScaleAt(Place);
  SetOrdProp(Font, 'Height', ScaledHeight(Wish.Height, Scale.Screen, Scale.Design));
  SetOrdProp(Font, 'Style', Wish.Style);
  if Value.IsBase and FFormerParentFont and not ReadParentFont(Place) then
    SetOrdProp(Place.Instance, 'ParentFont', Ord(True));
end;

end.

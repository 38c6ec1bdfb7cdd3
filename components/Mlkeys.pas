{ The key of an entry: the names of components from the owner of the localization component down, then the
  property's path with its items. Of "Bands[0].Columns[Tide].Caption" the second step is Columns with the item Tide. }
unit Mlkeys;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

type
  TmlStep = record
    Name: string;
    { Indexes (0-based) or names, as they stand in brackets. }
    Items: array of string;
  end;
  TmlSteps = array of TmlStep;

  TmlKey = record
    { The key begins with a dot: its steps lead from the owner itself. }
    OfOwner: Boolean;
    Steps: TmlSteps;
  end;

{ False for a text that is no key. }
function ParseKey(const Text: string; out Key: TmlKey): Boolean;

implementation

uses
  StrUtils;

{ Reads the items from the bracket at At on, and passes them. }
function ParseItems(const Text: string; var At: Integer; var Step: TmlStep): Boolean;
var
  Closing: Integer;
begin
  Result := True;
  while (At <= Length(Text)) and (Text[At] = '[') do
  begin
    Closing := PosEx(']', Text, At);
    Result := Closing > At + 1;
    if not Result then Exit;
    SetLength(Step.Items, Length(Step.Items) + 1);
    Step.Items[High(Step.Items)] := Copy(Text, At + 1, Closing - At - 1);
    At := Closing + 1;
  end;
end;

function ParseStep(const Text: string; var At: Integer; out Step: TmlStep): Boolean;
var
  From: Integer;
begin
  From := At;
  while (At <= Length(Text)) and not (Text[At] in ['.', '[', ']']) do
    Inc(At);
  Step.Name := Copy(Text, From, At - From);
  Step.Items := nil;
  Result := (Step.Name <> '') and ParseItems(Text, At, Step) and ((At > Length(Text)) or (Text[At] = '.'));
  Inc(At);
end;

function ParseKey(const Text: string; out Key: TmlKey): Boolean;
var
  At: Integer;
begin
  Key.OfOwner := Copy(Text, 1, 1) = '.';
  Key.Steps := nil;
  At := 1 + Ord(Key.OfOwner);
  Result := At <= Length(Text);
  while Result and (At <= Length(Text)) do
  begin
    SetLength(Key.Steps, Length(Key.Steps) + 1);
    Result := ParseStep(Text, At, Key.Steps[High(Key.Steps)]);
  end;
end;

end.

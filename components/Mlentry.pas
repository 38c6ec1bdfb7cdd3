{ An entry of a table and the property that shows it. The property is set only while it still reads as it was set
  last: whatever else stands there is the program's or the user's. }
unit Mlentry;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlaccess, Mlnames, Mlpath;

type
  TmlEntry = class
  private
    FKey, FLine, FDelimiter: string;
    FComponent: TComponent;
    FPath: TmlPath;
    FAccess: TmlAccess;
    { The language in which the property stood when the entry was met first. }
    FFirst: Integer;
    FKnown, FOurs: Boolean;
    FLast: string;
    procedure Forget;
    function Resolved(Root: TComponent; Names: TmlNames): Boolean;
    function ResolvePath(Root: TComponent; Names: TmlNames): Boolean;
    function Place(out Found: TmlPlace): Boolean;
    function ValueAt(Language: Integer): TmlValue;
  public
    MissingTold: Boolean;
    constructor Create(const Key, Line, Delimiter: string; First: Integer);
    destructor Destroy; override;
    { False where what the key means is not there. }
    function Check(Root: TComponent; Names: TmlNames): Boolean;
    { False where something else stands there and is kept. }
    function Write(Language: Integer): Boolean;
    procedure ReadBack;
    procedure ComponentGone;
    { The property stood in this language when it was streamed; of no interest once it was set. }
    procedure Assume(First: Integer);
    { The same key with another line; what is known of the property stays. }
    procedure Renew(const Line, Delimiter: string);
    function Wanted(Language: Integer): string;
    property Key: string read FKey;
    property Component: TComponent read FComponent;
  end;

implementation

uses
  SysUtils, Mlaccesses, Mlkeys, Mltexts;

constructor TmlEntry.Create(const Key, Line, Delimiter: string; First: Integer);
begin
  inherited Create;
  FKey := Key;
  FFirst := First;
  Renew(Line, Delimiter);
end;

destructor TmlEntry.Destroy;
begin
  Forget;
  inherited Destroy;
end;

procedure TmlEntry.Renew(const Line, Delimiter: string);
begin
  FLine := Line;
  FDelimiter := Delimiter;
end;

{ It may go while its property is being set, so the access stays for now. }
procedure TmlEntry.ComponentGone;
begin
  FComponent := nil;
  FOurs := False;
end;

procedure TmlEntry.Assume(First: Integer);
begin
  FFirst := First;
end;

procedure TmlEntry.Forget;
begin
  ComponentGone;
  FKnown := False;
  FreeAndNil(FPath);
  FreeAndNil(FAccess);
end;

{ As many names as lead to components are taken for components. }
function TmlEntry.ResolvePath(Root: TComponent; Names: TmlNames): Boolean;
var
  Parsed: TmlKey;
  Next: TComponent;
  Taken: Integer;
begin
  Result := ParseKey(FKey, Parsed);
  if not Result then Exit;
  FComponent := Root;
  Taken := 0;
  while not Parsed.OfOwner and (Taken < High(Parsed.Steps)) and (Parsed.Steps[Taken].Items = nil) do
  begin
    Next := Names.Find(FComponent, Parsed.Steps[Taken].Name);
    if Next = nil then Break;
    FComponent := Next;
    Inc(Taken);
  end;
  Result := Parsed.OfOwner or (Taken > 0);
  if Result then FPath := TmlPath.Create(Parsed.Steps, Taken);
end;

function TmlEntry.Resolved(Root: TComponent; Names: TmlNames): Boolean;
var
  Found: TmlPlace;
begin
  Result := FComponent <> nil;
  if Result then Exit;
  Forget;
  if ResolvePath(Root, Names) and FPath.Walk(FComponent, Found) then FAccess := NewAccess(Found);
  Result := FAccess <> nil;
  if not Result then Forget;
end;

function TmlEntry.Place(out Found: TmlPlace): Boolean;
begin
  Result := (FComponent <> nil) and FPath.Walk(FComponent, Found);
end;

function TmlEntry.ValueAt(Language: Integer): TmlValue;
begin
  Result.Text := ValueIn(FLine, FDelimiter, Language);
  Result.IsBase := Language = 1;
  if Result.IsBase then Result.Base := Result.Text else Result.Base := ValueIn(FLine, FDelimiter, 1);
  if FFirst = 1 then Result.First := Result.Base else Result.First := ValueIn(FLine, FDelimiter, FFirst);
end;

function TmlEntry.Wanted(Language: Integer): string;
begin
  Result := ValueAt(Language).Text;
end;

function TmlEntry.Check(Root: TComponent; Names: TmlNames): Boolean;
var
  Found: TmlPlace;
begin
  FOurs := False;
  Result := Resolved(Root, Names) and Place(Found);
  if not Result then Exit;
  if FKnown then
    FOurs := FAccess.StillReads(Found, FLast)
  else
    FOurs := FAccess.Shows(Found, ValueAt(FFirst));
end;

function TmlEntry.Write(Language: Integer): Boolean;
var
  Found: TmlPlace;
  Value: TmlValue;
begin
  Result := True;
  if not Place(Found) then Exit;
  Value := ValueAt(Language);
  if FAccess.Shows(Found, Value) then Exit;
  Result := FOurs and FAccess.MayTake(Found, Value);
  if Result then FAccess.Write(Found, Value);
end;

procedure TmlEntry.ReadBack;
var
  Found: TmlPlace;
begin
  if not (FOurs and Place(Found)) then Exit;
  FLast := FAccess.Read(Found);
  FKnown := True;
end;

end.

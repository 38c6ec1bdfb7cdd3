{ Sets what the tables of one component speak of. }
unit Mlapplier;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlchange, Mlentry, Mllanguages, Mlmap, Mlnames, Mlsurface, Mltables;

type
  TmlReportMissing = procedure(Kind: TmlMissingKind; const Name: string) of object;
  TmlReportKept = procedure(const Key, Text: string) of object;

  { Told when the change is over. }
  TmlReport = record
    Kept: Boolean;
    Kind: TmlMissingKind;
    Name, Text: string;
  end;

  TmlEntryStep = procedure(Entry: TmlEntry) of object;

  { The component that it serves may be destroyed at any time; it then calls Detach. }
  TmlApplier = class(TmlParticipant)
  private
    FRoot: TComponent;
    FServed: TComponent;
    FTables: TmlTables;
    FDelimiter: string;
    FEntries: TFPList;
    FKeys: TmlMap;
    FComponents: TmlMap;
    { The first entry of each component, and the next one of the same. }
    FFirstOf, FNextOf: array of Integer;
    FStale, FUnindexed, FChanged: Boolean;
    { Those of the components, while it checks. }
    FNames: TmlNames;
    FReports: array of TmlReport;
    FPlace, FApplied: Integer;
    FSurface: ImlSurface;
    FTurns, FMirror: Boolean;
    FOnMissing: TmlReportMissing;
    FOnKept: TmlReportKept;
    FOnTell: TNotifyEvent;
    procedure Rebuild;
    procedure AddTable(Kind: TStringsType; Former: TFPList; FormerKeys: TmlMap);
    procedure AddEntry(const Prefix, Line: string; Former: TFPList; FormerKeys: TmlMap);
    procedure AddExtended(Former: TFPList; FormerKeys: TmlMap);
    procedure IndexComponents;
    procedure Watch(Component: TComponent; Entry: Integer);
    procedure ForEachEntry(Step: TmlEntryStep);
    procedure CheckEntry(Entry: TmlEntry);
    procedure WriteEntry(Entry: TmlEntry);
    procedure ReadEntryBack(Entry: TmlEntry);
    procedure Report(Kept: Boolean; Kind: TmlMissingKind; const Name, Text: string);
    procedure Deliver(const Report: TmlReport);
    procedure Turn;
    function Alive: Boolean;
    function TagAt(Place: Integer): string;
  public
    { Lines beyond the tables, in the same form. }
    Extended: TStrings;
    constructor Create(Served: TComponent; Tables: TmlTables);
    destructor Destroy; override;
    function OwnerDepth: Integer; override;
    procedure BeginChange; override;
    procedure Check; override;
    procedure Write; override;
    procedure ReadBack; override;
    procedure EndChange; override;
    procedure Tell; override;
    procedure Detach;
    procedure TablesChanged;
    { Has the entries note what their properties show, for the tables are about to say something else. }
    procedure NoteShown;
    { With the other events of the next change. }
    procedure TellMissing(Kind: TmlMissingKind; const Name: string);
    { A component that is being destroyed. }
    procedure ComponentGone(Component: TComponent);
    { The language in which the properties stand. }
    procedure Assume(Place: Integer);
    property Delimiter: string read FDelimiter write FDelimiter;
    { The language that the next change sets. }
    property Place: Integer read FPlace write FPlace;
    { Whether it turns its owner to the side from which the language is written. }
    property Turns: Boolean read FTurns write FTurns;
    property Mirror: Boolean read FMirror write FMirror;
    property OnMissing: TmlReportMissing read FOnMissing write FOnMissing;
    property OnKept: TmlReportKept read FOnKept write FOnKept;
    property OnTell: TNotifyEvent read FOnTell write FOnTell;
  end;

implementation

uses
  SysUtils, Mlcodec, Mldirection, Mlpath, Mltexts;

procedure FreeEntries(Entries: TFPList);
var
  I: Integer;
begin
  for I := 0 to Entries.Count - 1 do
    TObject(Entries[I]).Free;
  Entries.Free;
end;

constructor TmlApplier.Create(Served: TComponent; Tables: TmlTables);
begin
  inherited Create;
  FServed := Served;
  FRoot := Served.Owner;
  FTables := Tables;
  FPlace := 1;
  FApplied := 1;
  FStale := True;
  FEntries := TFPList.Create;
  Extended := TStringList.Create;
end;

destructor TmlApplier.Destroy;
begin
  Extended.Free;
  FreeEntries(FEntries);
  FKeys.Free;
  FComponents.Free;
  inherited Destroy;
end;

procedure TmlApplier.Detach;
begin
  FRoot := nil;
  FServed := nil;
  FTables := nil;
  FOnMissing := nil;
  FOnKept := nil;
  FOnTell := nil;
end;

function TmlApplier.Alive: Boolean;
begin
  Result := (FRoot <> nil) and not (csDestroying in FRoot.ComponentState);
end;

procedure TmlApplier.TablesChanged;
begin
  FStale := True;
end;

procedure TmlApplier.Assume(Place: Integer);
var
  I: Integer;
begin
  for I := 0 to FEntries.Count - 1 do
    TmlEntry(FEntries[I]).Assume(Place);
  FApplied := Place;
  FPlace := Place;
end;

function TmlApplier.OwnerDepth: Integer;
var
  Above: TComponent;
begin
  Result := 0;
  Above := FRoot;
  while Above <> nil do
  begin
    Inc(Result);
    Above := Above.Owner;
  end;
end;

{ An entry that was there before keeps what it knows of its property. }
procedure TmlApplier.AddEntry(const Prefix, Line: string; Former: TFPList; FormerKeys: TmlMap);
var
  Key: string;
  Index, Count: Integer;
begin
  FieldAt(Line, FDelimiter, 0, Key);
  if Key = '' then Exit;
  Count := FKeys.Count;
  if FKeys.Add(Prefix + Key) <> Count then Exit;
  Index := -1;
  if FormerKeys <> nil then Index := FormerKeys.Find(Prefix + Key);
  if Index < 0 then
    FEntries.Add(TmlEntry.Create(Key, Line, FDelimiter, FApplied))
  else
  begin
    TmlEntry(Former[Index]).Renew(Line, FDelimiter);
    FEntries.Add(Former[Index]);
    Former[Index] := nil;
  end;
end;

procedure TmlApplier.AddTable(Kind: TStringsType; Former: TFPList; FormerKeys: TmlMap);
var
  I: Integer;
begin
  for I := 0 to FTables[Kind].Count - 1 do
    AddEntry(IntToStr(Ord(Kind)) + ' ', FTables[Kind][I], Former, FormerKeys);
end;

procedure TmlApplier.AddExtended(Former: TFPList; FormerKeys: TmlMap);
var
  I: Integer;
begin
  for I := 0 to Extended.Count - 1 do
    AddEntry('', Extended[I], Former, FormerKeys);
end;

procedure TmlApplier.Rebuild;
var
  Kind: TStringsType;
  Former: TFPList;
  FormerKeys: TmlMap;
begin
  Former := FEntries;
  FormerKeys := FKeys;
  FEntries := TFPList.Create;
  FKeys := TmlMap.Create(Former.Count);
  try
    for Kind := Low(Kind) to High(Kind) do
      if not (Kind in [stStrings, stLocales]) then AddTable(Kind, Former, FormerKeys);
    AddExtended(Former, FormerKeys);
  finally
    FreeEntries(Former);
    FormerKeys.Free;
  end;
  FStale := False;
  FUnindexed := True;
end;

function PointerKey(Item: Pointer): string;
begin
  SetString(Result, PAnsiChar(@Item), SizeOf(Item));
end;

{ Siblings are told of each other anyway; others have to be asked to tell. }
procedure TmlApplier.Watch(Component: TComponent; Entry: Integer);
var
  Count, Index: Integer;
begin
  Count := FComponents.Count;
  Index := FComponents.Add(PointerKey(Component));
  if Index = Count then
  begin
    FNextOf[Entry] := -1;
    if (Component <> FRoot) and (Component.Owner <> FRoot) then Component.FreeNotification(FServed);
  end
  else
    FNextOf[Entry] := FFirstOf[Index];
  FFirstOf[Index] := Entry;
end;

procedure TmlApplier.IndexComponents;
var
  I: Integer;
begin
  FUnindexed := False;
  FComponents.Free;
  FComponents := TmlMap.Create(FEntries.Count, True);
  SetLength(FFirstOf, FEntries.Count);
  SetLength(FNextOf, FEntries.Count);
  for I := 0 to FEntries.Count - 1 do
    if TmlEntry(FEntries[I]).Component <> nil then Watch(TmlEntry(FEntries[I]).Component, I);
end;

procedure TmlApplier.ComponentGone(Component: TComponent);
var
  Entry: Integer;
begin
  if (FComponents = nil) or not Alive then Exit;
  Entry := FComponents.Find(PointerKey(Component));
  if Entry >= 0 then Entry := FFirstOf[Entry];
  while Entry >= 0 do
  begin
    if TmlEntry(FEntries[Entry]).Component = Component then TmlEntry(FEntries[Entry]).ComponentGone;
    Entry := FNextOf[Entry];
  end;
end;

{ Handlers may destroy anything, so they are called when all is done. }
procedure TmlApplier.Report(Kept: Boolean; Kind: TmlMissingKind; const Name, Text: string);
begin
  SetLength(FReports, Length(FReports) + 1);
  FReports[High(FReports)].Kept := Kept;
  FReports[High(FReports)].Kind := Kind;
  FReports[High(FReports)].Name := Name;
  FReports[High(FReports)].Text := Text;
end;

procedure TmlApplier.Deliver(const Report: TmlReport);
begin
  if Report.Kept then
  begin
    if Assigned(FOnKept) then FOnKept(Report.Name, Report.Text);
  end
  else if Assigned(FOnMissing) then
    FOnMissing(Report.Kind, Report.Name);
end;

{ What a property raises is told, and the others are done. }
procedure TmlApplier.ForEachEntry(Step: TmlEntryStep);
var
  I: Integer;
begin
  for I := 0 to FEntries.Count - 1 do
    if Alive then
    try
      Step(TmlEntry(FEntries[I]));
    except
      on E: Exception do Report(False, mkRefused, TmlEntry(FEntries[I]).Key + ': ' + E.Message, '');
    end;
end;

procedure TmlApplier.CheckEntry(Entry: TmlEntry);
var
  Former: TComponent;
begin
  Former := Entry.Component;
  try
    if Entry.Check(FRoot, FNames) or Entry.MissingTold then Exit;
    Entry.MissingTold := True;
    Report(False, mkTarget, Entry.Key, '');
  finally
    FUnindexed := FUnindexed or (Entry.Component <> Former);
  end;
end;

procedure TmlApplier.WriteEntry(Entry: TmlEntry);
begin
  if not Entry.Write(FPlace) then Report(True, mkTarget, Entry.Key, Entry.Wanted(FPlace));
end;

procedure TmlApplier.ReadEntryBack(Entry: TmlEntry);
begin
  Entry.ReadBack;
end;

procedure TmlApplier.BeginChange;
begin
  if not Alive then Exit;
  if (FSurface = nil) and Assigned(SurfaceMaker) then FSurface := SurfaceMaker(FRoot);
  if FSurface <> nil then FSurface.BeginChange;
end;

procedure TmlApplier.Check;
begin
  if not Alive then Exit;
  if FStale then Rebuild;
  FNames := TmlNames.Create;
  try
    ForEachEntry(CheckEntry);
  finally
    FreeAndNil(FNames);
  end;
  if Alive and FUnindexed then IndexComponents;
end;

procedure TmlApplier.NoteShown;
begin
  Check;
  ForEachEntry(ReadEntryBack);
end;

procedure TmlApplier.TellMissing(Kind: TmlMissingKind; const Name: string);
begin
  Report(False, Kind, Name, '');
end;

procedure TmlApplier.Write;
begin
  ForEachEntry(WriteEntry);
end;

procedure TmlApplier.ReadBack;
begin
  ForEachEntry(ReadEntryBack);
  FChanged := FPlace <> FApplied;
  FApplied := FPlace;
  if Alive then Turn;
end;

function TmlApplier.TagAt(Place: Integer): string;
var
  I: Integer;
  Key: string;
begin
  for I := 0 to FTables[stLocales].Count - 1 do
    if FieldAt(FTables[stLocales][I], FDelimiter, 0, Key) and SameText(Key, '.Locale') then
    begin
      Result := ValueIn(FTables[stLocales][I], FDelimiter, Place);
      Exit;
    end;
  Result := '';
end;

procedure TmlApplier.Turn;
var
  Turned: Boolean;
begin
  if not FTurns or (FSurface = nil) then Exit;
  Turned := IsRightToLeft(TagAt(FPlace)) <> IsRightToLeft(TagAt(1));
  try
    FSurface.Turn(Turned, IsRightToLeft(TagAt(FPlace)), FMirror);
  except
    on E: Exception do Report(False, mkRefused, '.BiDiMode: ' + E.Message, '');
  end;
end;

procedure TmlApplier.EndChange;
begin
  try
    EndChangeOfItems;
  except
    on E: Exception do Report(False, mkRefused, 'SortType: ' + E.Message, '');
  end;
  if FSurface <> nil then FSurface.EndChange;
end;

procedure TmlApplier.Tell;
var
  I: Integer;
  Reports: array of TmlReport;
begin
  Reports := FReports;
  FReports := nil;
  for I := 0 to High(Reports) do
    Deliver(Reports[I]);
  if FChanged and Alive and Assigned(FOnTell) then FOnTell(FServed);
end;

end.

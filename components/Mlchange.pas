{ A change of language, which reaches several components together: first all look whether their properties are still
  theirs, then all set, then all note what reads back. So a frame's component does not take what the form's has set
  over it for somebody else's. }
unit Mlchange;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mllanguages;

type
  TmlComponents = array of TmlLanguages;

  { What a component takes part with. It outlives the component as long as a change runs; most parts have nothing to
    do at most steps. }
  ImlApplier = interface
    ['{6C1B8E52-7C0F-4E5B-9B6A-2F3D6A2B9D11}']
    function OwnerDepth: Integer;
    procedure BeginChange;
    procedure Check;
    procedure Write;
    procedure ReadBack;
    procedure EndChange;
    procedure Tell;
  end;

  TmlParticipant = class(TInterfacedObject, ImlApplier)
  public
    { How many owners stand above the component. }
    function OwnerDepth: Integer; virtual;
    procedure BeginChange; virtual;
    procedure Check; virtual;
    procedure Write; virtual;
    procedure ReadBack; virtual;
    procedure EndChange; virtual;
    procedure Tell; virtual;
  end;

{ Appliers in the order of their components' creation. They are applied frames inside out, the form last; while
  another change runs in this thread, after it. }
procedure ApplyTogether(Appliers: TInterfaceList);

{ The active languages of all these components, in one change. }
procedure ApplyLanguages(const Components: array of TmlLanguages);

implementation

const
  { An event that changes the language at each change would go on for ever. }
  MostRounds = 100;

function TmlParticipant.OwnerDepth: Integer;
begin
  Result := 0;
end;

procedure TmlParticipant.BeginChange;
begin
  { nothing to do }
end;

procedure TmlParticipant.Check;
begin
  { nothing to do }
end;

procedure TmlParticipant.Write;
begin
  { nothing to do }
end;

procedure TmlParticipant.ReadBack;
begin
  { nothing to do }
end;

procedure TmlParticipant.EndChange;
begin
  { nothing to do }
end;

procedure TmlParticipant.Tell;
begin
  { nothing to do }
end;

threadvar
  Running: Boolean;
  Waiting: TInterfaceList;

type
  TmlChangeStep = procedure(const Applier: ImlApplier);

procedure BeginStep(const Applier: ImlApplier);
begin
  Applier.BeginChange;
end;

procedure CheckStep(const Applier: ImlApplier);
begin
  Applier.Check;
end;

procedure WriteStep(const Applier: ImlApplier);
begin
  Applier.Write;
end;

procedure ReadBackStep(const Applier: ImlApplier);
begin
  Applier.ReadBack;
end;

procedure EndStep(const Applier: ImlApplier);
begin
  Applier.EndChange;
end;

procedure TellStep(const Applier: ImlApplier);
begin
  Applier.Tell;
end;

procedure ForEach(Appliers: TInterfaceList; Step: TmlChangeStep);
var
  I: Integer;
begin
  for I := 0 to Appliers.Count - 1 do
    Step(Appliers[I] as ImlApplier);
end;

{ Deep owners first, otherwise in the given order; each once. }
function InsideOut(Appliers: TInterfaceList): TInterfaceList;
var
  I, Depth, Deepest: Integer;
begin
  Result := TInterfaceList.Create;
  Deepest := 0;
  for I := 0 to Appliers.Count - 1 do
    if (Appliers[I] as ImlApplier).OwnerDepth > Deepest then Deepest := (Appliers[I] as ImlApplier).OwnerDepth;
  for Depth := Deepest downto 0 do
    for I := 0 to Appliers.Count - 1 do
      if ((Appliers[I] as ImlApplier).OwnerDepth = Depth) and (Result.IndexOf(Appliers[I]) < 0) then
        Result.Add(Appliers[I]);
end;

procedure Run(Appliers: TInterfaceList);
var
  Ordered: TInterfaceList;
begin
  Ordered := InsideOut(Appliers);
  try
    ForEach(Ordered, BeginStep);
    try
      ForEach(Ordered, CheckStep);
      ForEach(Ordered, WriteStep);
      ForEach(Ordered, ReadBackStep);
    finally
      ForEach(Ordered, EndStep);
    end;
    ForEach(Ordered, TellStep);
  finally
    Ordered.Free;
  end;
end;

procedure Wait(Appliers: TInterfaceList);
var
  I: Integer;
begin
  if Waiting = nil then Waiting := TInterfaceList.Create;
  for I := 0 to Appliers.Count - 1 do
    Waiting.Add(Appliers[I]);
end;

procedure RunWaiting;
var
  Next: TInterfaceList;
  Rounds: Integer;
begin
  Rounds := 0;
  while Waiting <> nil do
  begin
    Next := Waiting;
    Waiting := nil;
    try
      Inc(Rounds);
      if Rounds <= MostRounds then Run(Next);
    finally
      Next.Free;
    end;
  end;
end;

procedure ApplyTogether(Appliers: TInterfaceList);
begin
  Wait(Appliers);
  if Running then Exit;
  Running := True;
  try
    RunWaiting;
  finally
    Running := False;
  end;
end;

procedure ApplyLanguages(const Components: array of TmlLanguages);
var
  I: Integer;
  Appliers: TInterfaceList;
begin
  Appliers := TInterfaceList.Create;
  try
    for I := 0 to High(Components) do
      Components[I].AddAppliers(Appliers);
    ApplyTogether(Appliers);
  finally
    Appliers.Free;
  end;
end;

end.

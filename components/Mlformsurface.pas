{ Forms and frames of the LCL: laid out once a change, and turned to the side from which a language is written. }
unit Mlformsurface;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

implementation

uses
  Classes, Controls, Mlcustomlang, Mlsurface;

type
  { Knows as long as it is there. }
  TmlControlWatch = class(TComponent)
  private
    FControl: TWinControl;
  protected
    procedure Notification(AComponent: TComponent; Operation: TOperation); override;
  public
    procedure Watch(Control: TWinControl);
  end;

  TmlFormSurface = class(TInterfacedObject, ImlSurface)
  private
    FWatch: TmlControlWatch;
    FTurned, FMirrored: Boolean;
    FFormerBiDiMode: TBiDiMode;
    FFormerParentBiDiMode: Boolean;
    procedure TurnTo(RightToLeft: Boolean);
    procedure TurnBack;
  public
    constructor Create(Control: TWinControl);
    destructor Destroy; override;
    procedure BeginChange;
    procedure EndChange;
    procedure Turn(Turned, RightToLeft, Mirror: Boolean);
  end;

procedure TmlControlWatch.Watch(Control: TWinControl);
begin
  FControl := Control;
  Control.FreeNotification(Self);
end;

procedure TmlControlWatch.Notification(AComponent: TComponent; Operation: TOperation);
begin
  inherited Notification(AComponent, Operation);
  if (Operation = opRemove) and (AComponent = FControl) then FControl := nil;
end;

constructor TmlFormSurface.Create(Control: TWinControl);
begin
  inherited Create;
  FWatch := TmlControlWatch.Create(nil);
  FWatch.Watch(Control);
end;

destructor TmlFormSurface.Destroy;
begin
  FWatch.Free;
  inherited Destroy;
end;

procedure TmlFormSurface.BeginChange;
begin
  if FWatch.FControl <> nil then FWatch.FControl.DisableAutoSizing;
end;

procedure TmlFormSurface.EndChange;
begin
  if FWatch.FControl <> nil then FWatch.FControl.EnableAutoSizing;
end;

{ A frame with a localization component of its own turns itself. }
function TurnsItself(Control: TComponent): Boolean;
var
  I: Integer;
begin
  Result := True;
  for I := 0 to Control.ComponentCount - 1 do
    if Control.Components[I] is TmlCustomLang then Exit;
  Result := False;
end;

procedure MirrorWithin(Parent: TWinControl);
var
  I: Integer;
begin
  Parent.FlipChildren(False);
  for I := 0 to Parent.ControlCount - 1 do
    if (Parent.Controls[I] is TWinControl) and not TurnsItself(Parent.Controls[I]) then
      MirrorWithin(TWinControl(Parent.Controls[I]));
end;

procedure TmlFormSurface.TurnTo(RightToLeft: Boolean);
begin
  if not FTurned then
  begin
    FFormerBiDiMode := FWatch.FControl.BiDiMode;
    FFormerParentBiDiMode := FWatch.FControl.ParentBiDiMode;
  end;
  FTurned := True;
  if RightToLeft then
    FWatch.FControl.BiDiMode := bdRightToLeft
  else
    FWatch.FControl.BiDiMode := bdLeftToRight;
end;

{ Setting the one switches the other off. }
procedure TmlFormSurface.TurnBack;
begin
  FTurned := False;
  FWatch.FControl.BiDiMode := FFormerBiDiMode;
  FWatch.FControl.ParentBiDiMode := FFormerParentBiDiMode;
end;

procedure TmlFormSurface.Turn(Turned, RightToLeft, Mirror: Boolean);
begin
  if FWatch.FControl = nil then Exit;
  if Turned then
    TurnTo(RightToLeft)
  else if FTurned then
    TurnBack;
  if (Turned and Mirror) = FMirrored then Exit;
  FMirrored := not FMirrored;
  MirrorWithin(FWatch.FControl);
end;

function MakeFormSurface(Owner: TComponent): ImlSurface;
begin
  Result := nil;
  if Owner is TWinControl then Result := TmlFormSurface.Create(TWinControl(Owner));
end;

initialization
  SurfaceMaker := MakeFormSurface;

end.

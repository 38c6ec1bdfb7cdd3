{ The window side of the owner of a localization component, which a unit of the visual library stands in for. }
unit Mlsurface;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes;

type
  { Bears that its owner is destroyed at any time. }
  ImlSurface = interface
    { Between these nothing is laid out. }
    procedure BeginChange;
    procedure EndChange;
    { Turned: the active language is written from the other side than the base language. }
    procedure Turn(Turned, RightToLeft, Mirror: Boolean);
  end;

  TmlSurfaceMaker = function(Owner: TComponent): ImlSurface;

var
  { Set by the unit of the visual library; gives nil for an owner that is nothing visible. }
  SurfaceMaker: TmlSurfaceMaker = nil;

implementation

end.

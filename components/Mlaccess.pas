{ How a property that a table speaks of is read, compared and set. }
unit Mlaccess;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlpath;

type
  { A value that a property is to show. }
  TmlValue = record
    Text: string;
    { In the base language, which stands in for what is missing and is restored exactly. }
    Base: string;
    { In the language in which the property stood at first. }
    First: string;
    IsBase: Boolean;
  end;

  { A property as long as it can be reached; each call is given the place anew. }
  TmlAccess = class
  public
    { The whole value as a text. }
    function Read(const Place: TmlPlace): string; virtual; abstract;
    { Whether the property shows the value. }
    function Shows(const Place: TmlPlace; const Value: TmlValue): Boolean; virtual;
    { Whether it still shows what Read gave earlier. }
    function StillReads(const Place: TmlPlace; const Earlier: string): Boolean; virtual;
    { Whether the value speaks only of what the streamed value speaks of too, or of what nobody has set. }
    function MayTake(const Place: TmlPlace; const Value: TmlValue): Boolean; virtual;
    procedure Write(const Place: TmlPlace; const Value: TmlValue); virtual; abstract;
  end;

implementation

function TmlAccess.Shows(const Place: TmlPlace; const Value: TmlValue): Boolean;
begin
  Result := Read(Place) = Value.Text;
end;

function TmlAccess.StillReads(const Place: TmlPlace; const Earlier: string): Boolean;
begin
  Result := Read(Place) = Earlier;
end;

function TmlAccess.MayTake(const Place: TmlPlace; const Value: TmlValue): Boolean;
begin
  Result := True;
end;

end.

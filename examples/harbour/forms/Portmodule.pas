{ The ships of the port, and what is told of them. }
unit Portmodule;

{$mode objfpc}{$H+}

interface

uses
  Classes, SysUtils, Dialogs, Mllang;

type
  TShipState = (ssExpected, ssInPort, ssSailed);

  TShip = class
    Name: string;
    Tons: Integer;
    State: TShipState;
  end;

  TPortData = class(TDataModule)
    dlgSave: TSaveDialog;
    mlLang_PortData: TmlLang;
    procedure DataModuleCreate(Sender: TObject);
    procedure DataModuleDestroy(Sender: TObject);
  private
    FShips: TList;
    function GetShip(Index: Integer): TShip;
  public
    procedure Add(const ShipName: string; Tons: Integer; State: TShipState);
    function ShipCount: Integer;
    function TonsInPort: Integer;
    function StateText(State: TShipState): string;
    function ArrivalText(Ship: TShip): string;
    property Ships[Index: Integer]: TShip read GetShip;
  end;

var
  PortData: TPortData;

implementation

{$R *.lfm}

procedure TPortData.DataModuleCreate(Sender: TObject);
begin
  FShips := TList.Create;
  Add({TML:IGNORE}'Anna Maria', 4200, ssInPort);
  Add({TML:IGNORE}'Seagull', 850, ssInPort);
  Add({TML:IGNORE}'Northern Star', 61000, ssExpected);
  Add({TML:IGNORE}'Albatross', 12300, ssSailed);
end;

procedure TPortData.DataModuleDestroy(Sender: TObject);
var
  I: Integer;
begin
  for I := 0 to FShips.Count - 1 do
    Ships[I].Free;
  FShips.Free;
end;

procedure TPortData.Add(const ShipName: string; Tons: Integer; State: TShipState);
var
  Ship: TShip;
begin
  Ship := TShip.Create;
  Ship.Name := ShipName;
  Ship.Tons := Tons;
  Ship.State := State;
  FShips.Add(Ship);
end;

function TPortData.GetShip(Index: Integer): TShip;
begin
  Result := TShip(FShips[Index]);
end;

function TPortData.ShipCount: Integer;
begin
  Result := FShips.Count;
end;

function TPortData.TonsInPort: Integer;
var
  I: Integer;
begin
  Result := 0;
  for I := 0 to ShipCount - 1 do
    if Ships[I].State = ssInPort then Inc(Result, Ships[I].Tons);
end;

function TPortData.StateText(State: TShipState): string;
begin
  case State of
    ssExpected: Result := mlLang_PortData.GetTextOrDefault('IDS_0' (* 'Expected' *) );
    ssInPort: Result := mlLang_PortData.GetTextOrDefault('IDS_1' (* 'In port' *) );
  else
    Result := mlLang_PortData.GetTextOrDefault('IDS_2' (* 'Sailed' *) );
  end;
end;

function TPortData.ArrivalText(Ship: TShip): string;
begin
  Result := Format(mlLang_PortData.GetTextOrDefault('IDS_3' (* 'The %s of %d tons is here.' *) ), [Ship.Name, Ship.Tons]);
end;

end.

unit Addressframe;

interface

uses
  Classes, Controls, Forms, StdCtrls;

type
  TAddressFrame = class(TFrame)
    StreetLabel: TLabel;
    StreetEdit: TEdit;
    TownLabel: TLabel;
    TownEdit: TEdit;
  public
    function OneLine: string;
  end;

implementation

{$R *.dfm}

function TAddressFrame.OneLine: string;
begin
  if TownEdit.Text = '' then
    Result := 'no address'
  else
    Result := StreetEdit.Text + ', ' + TownEdit.Text;
end;

end.

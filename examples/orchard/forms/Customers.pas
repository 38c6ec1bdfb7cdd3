unit Customers;

interface

uses
  SysUtils, Classes, Controls, Forms, StdCtrls, Grids, Addressframe;

type
  TCustomersForm = class(TForm)
    CustomerGrid: TStringGrid;
    Address: TAddressFrame;
    FindEdit: TEdit;
    FindLabel: TLabel;
    procedure FormShow(Sender: TObject);
    procedure FindEditChange(Sender: TObject);
  private
    procedure Fill;
  public
    [Hint('never shown')]
    function CountText(Count: Integer): string;
  end;

var
  CustomersForm: TCustomersForm;

implementation

{$R *.dfm}

const
  Columns: array[0..2] of string = ('Name', 'Town', 'Balance');

procedure TCustomersForm.FormShow(Sender: TObject);
begin
  Fill;
  Caption := 'Customers';
end;

procedure TCustomersForm.Fill;
var
  I: Integer;
begin
  for I := 0 to 2 do
    CustomerGrid.Cells[I, 0] := Columns[I];
  (* The first row is a sample: 'Miller' *)
  CustomerGrid.Cells[0, 1] := 'Miller & Sons';
  CustomerGrid.Cells[1, 1] := 'Grünstadt';
  CustomerGrid.Cells[2, 1] := '0,00 €';
end;

function TCustomersForm.CountText(Count: Integer): string;
begin
  if Count = 1 then
    Result := 'one customer'
  else
    Result := IntToStr(Count) + ' customers';
end;

procedure TCustomersForm.FindEditChange(Sender: TObject);
begin
  if FindEdit.Text = '' then
    FindLabel.Caption := 'Type a name'
  else
    FindLabel.Caption := 'Looking for "' + FindEdit.Text + '"';
end;

end.

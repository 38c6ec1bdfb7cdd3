unit Orderdialog;

interface

uses
  SysUtils, Classes, Controls, Forms, StdCtrls, Basedialog;

type
  IOrderSink = interface
    ['{6B1D6C7E-2F0A-4E0C-9B37-0C5B6E1A2D44}']
    procedure Accept(const Fruit: string; Kilos: Double);
  end;

  TOrderDialog = class(TBaseDialog)
    FruitBox: TComboBox;
    KilosEdit: TEdit;
    procedure FormCreate(Sender: TObject);
  private
    FSink: IOrderSink;
  protected
    function Problem: string; override;
  public
    property Sink: IOrderSink read FSink write FSink;
  end;

implementation

{$R *.dfm}

procedure TOrderDialog.FormCreate(Sender: TObject);
begin
  Caption := 'New order';
  FruitBox.Items.Text := 'Apples'#13#10'Pears'#13#10'Plums';
  FruitBox.Hint := #171'Fruit'#187' of the season';
end;

function TOrderDialog.Problem: string;
var
  Kilos: Double;
begin
  Result := inherited Problem;
  if FruitBox.ItemIndex < 0 then
    Result := 'Choose a fruit first.'
  else if not TryStrToFloat(KilosEdit.Text, Kilos) then
    Result := 'The weight "' + KilosEdit.Text + '" is not a number.'
  else if Kilos > 1000 then
    Result := 'More than a ton needs ' + 'the farmer''s signature ' +
      'and a lorry.';
end;

end.

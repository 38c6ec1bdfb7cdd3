unit Basedialog;

interface

uses
  Classes, Controls, Forms, StdCtrls;

type
  TBaseDialog = class(TForm)
    OkButton: TButton;
    CancelButton: TButton;
    procedure OkButtonClick(Sender: TObject);
  protected
    function Problem: string; virtual;
  end;

implementation

uses
  Dialogs;

{$R *.dfm}

function TBaseDialog.Problem: string;
begin
  Result := '';
end;

procedure TBaseDialog.OkButtonClick(Sender: TObject);
begin
  if Problem = '' then
    ModalResult := mrOk
  else
    MessageDlg('This cannot be accepted:'#13#10 + Problem, mtError, [mbOK], 0);
end;

end.

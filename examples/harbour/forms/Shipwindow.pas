{ A ship that arrives. }
unit Shipwindow;

{$mode objfpc}{$H+}

interface

uses
  Classes, SysUtils, Forms, Controls, Dialogs, StdCtrls, Spin, Basewindow, Cargopart;

type
  TShipDialog = class(TBaseDialog)
    lblName: TLabel;
    edtName: TEdit;
    lblTons: TLabel;
    edtTons: TSpinEdit;
    fraCargo: TCargoFrame;
    procedure FormCloseQuery(Sender: TObject; var CanClose: Boolean);
  end;

implementation

{$R *.lfm}

procedure TShipDialog.FormCloseQuery(Sender: TObject; var CanClose: Boolean);
begin
  CanClose := (ModalResult <> mrOK) or (Trim(edtName.Text) <> '');
  if not CanClose then
    MessageDlg(mlLang_BaseDialog.GetTextOrDefault('IDS_0' (* 'A ship needs a name.' *) ), mtWarning, [mbOK], 0);
end;

end.

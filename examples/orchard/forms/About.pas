unit About;

interface

uses
  Classes, Controls, Forms, StdCtrls, Dialogs, Mllang;

type
  TAboutBox = class(TForm)
    ProductLabel: TLabel;
    VersionLabel: TLabel;
    CloseButton: TButton;
    mlLang_AboutBox: TmlLang;
    procedure FormCreate(Sender: TObject);
    procedure ProductLabelClick(Sender: TObject);
  end;

implementation

{$R *.dfm}

procedure TAboutBox.FormCreate(Sender: TObject);
begin
  ProductLabel.Caption := mlLang_AboutBox.GetTextOrDefault('IDS_0' (* 'Orchard order book' *) );
  VersionLabel.Caption := mlLang_AboutBox.GetTextOrDefault('IDS_1' (* 'Version 2.1 for farms of every size' *) );
end;

procedure TAboutBox.ProductLabelClick(Sender: TObject);
begin
  MessageDlg('Orchard order book' + #13 + 'Grown on the farm since 1998', mtInformation, [mbOK], 0);
end;

end.

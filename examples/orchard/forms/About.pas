unit About;

interface

uses
  Classes, Controls, Forms, StdCtrls;

type
  TAboutBox = class(TForm)
    ProductLabel: TLabel;
    VersionLabel: TLabel;
    CloseButton: TButton;
    procedure FormCreate(Sender: TObject);
    procedure ProductLabelClick(Sender: TObject);
  end;

implementation

{$R *.dfm}

procedure TAboutBox.FormCreate(Sender: TObject);
begin
  ProductLabel.Caption := 'Orchard order book';
  VersionLabel.Caption := 'Version 2.1 for farms of every size';
end;

procedure TAboutBox.ProductLabelClick(Sender: TObject);
begin
end;

end.

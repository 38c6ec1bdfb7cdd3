unit Photo;

interface

uses
  Forms;

type
  TPhotoForm = class(TForm)
    procedure FormCreate(Sender: TObject);
  end;

implementation

{$R *.dfm}

procedure TPhotoForm.FormCreate(Sender: TObject);
begin
  Caption := 'The caption';
end;

end.

unit Good;

interface

uses
  Forms;

type
  TGoodForm = class(TForm)
    procedure FormCreate(Sender: TObject);
  end;

implementation

{$R *.dfm}

procedure TGoodForm.FormCreate(Sender: TObject);
begin
  Caption := 'The caption';
end;

end.

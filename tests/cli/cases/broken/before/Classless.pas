unit Classless;

interface

uses
  Forms;

type
  TOtherForm = class(TForm)
    procedure FormCreate(Sender: TObject);
  end;

implementation

{$R *.dfm}

procedure TClasslessForm.FormCreate(Sender: TObject);
begin
  Caption := 'The caption';
end;

end.

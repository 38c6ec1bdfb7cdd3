unit Cutoff;

interface

uses
  Forms;

type
  TCutoffForm = class(TForm)
    procedure FormCreate(Sender: TObject);
  end;

implementation

{$R *.dfm}

procedure TCutoffForm.FormCreate(Sender: TObject);
begin
  Caption := 'The caption';
end;

end.

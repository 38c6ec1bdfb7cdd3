unit Unit1;

interface

uses
  Forms;

type
  TForm1 = class(TForm)
    procedure Go;
  end;

var
  Form1: TForm1;

implementation

{$R *.dfm}

procedure TForm1.Go;
begin
  Caption := 'One form';
end;

end.

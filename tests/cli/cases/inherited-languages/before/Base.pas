unit Base;

interface

uses
  Forms, Mllang;

type
  TBaseForm = class(TForm)
    mlLang_BaseForm: TmlLang;
    procedure BaseCreate(Sender: TObject);
    procedure Go;
  end;

var
  BaseForm: TBaseForm;

implementation

{$R *.dfm}

procedure TBaseForm.BaseCreate(Sender: TObject);
begin
end;

procedure TBaseForm.Go;
begin
  Caption := 'Every form';
  Hint := 'New in the base';
end;

end.

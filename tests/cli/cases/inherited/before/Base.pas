unit Base;

interface

uses
  Forms, Mllang;

type
  TBaseForm = class(TForm)
    mlLang_BaseForm: TmlLang;
    procedure Go;
  end;

var
  BaseForm: TBaseForm;

implementation

{$R *.dfm}

procedure TBaseForm.Go;
begin
  Caption := 'Every form';
end;

end.

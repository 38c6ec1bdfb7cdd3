unit Base;

interface

uses
  Forms, StdCtrls, Mllang;

type
  TBaseForm = class(TForm)
    btnOK: TButton;
    mlLang: TmlLang;
  end;

var
  BaseForm: TBaseForm;

implementation

{$R *.dfm}

end.

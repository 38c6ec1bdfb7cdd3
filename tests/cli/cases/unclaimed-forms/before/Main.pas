unit Main;

interface

uses
  Forms, Mllang;

type
  TMainForm = class(TForm)
    mlLang1: TmlLang;
  end;

implementation

{$R *.dfm}

end.

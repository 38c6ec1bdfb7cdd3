unit Main;

interface

uses
  Forms, StdCtrls, Mllang;

type
  TMainForm = class(TForm)
    btnOpen: TButton;
    mlLang1: TmlLang;
  end;

implementation

{$R *.dfm}

end.

unit Main;

interface

uses
  Forms, StdCtrls, Mllang;

type
  TMainForm = class(TForm)
    lblTide: TLabel;
    memHelp: TMemo;
    mlLang1: TmlLang;
  end;

implementation

{$R *.dfm}

end.

unit Berth;

interface

uses
  Forms, StdCtrls, Mllang;

type
  TBerthForm = class(TForm)
    btnOpen: TButton;
    mlLang1: TmlLang;
  end;

implementation

{$R *.dfm}

end.

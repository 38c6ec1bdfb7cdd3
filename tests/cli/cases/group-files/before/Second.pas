unit Second;

interface

uses
  Forms, Mllang;

type
  TSecondForm = class(TForm)
    mlLang1: TmlLang;
  end;

implementation

{$R *.dfm}

end.

unit Harbour;

interface

uses
  Forms;

type
  THarbourForm = class(TForm)
    mlLang1: TmlLang;
  end;

var
  HarbourForm: THarbourForm;

implementation

{$R *.dfm}

end.

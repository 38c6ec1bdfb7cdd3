unit Basin;

interface

uses
  Forms, StdCtrls, Mllang, Winch;

type
  TBasinForm = class(TForm)
    lblLoad: TLabel;
    btnOpen: TButton;
    fraWinch: TWinchFrame;
    mlLang: TmlLang;
  end;

var
  BasinForm: TBasinForm;

implementation

{$R *.lfm}

end.

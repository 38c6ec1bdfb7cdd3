unit Plain;

interface

uses
  Forms, StdCtrls;

type
  TPlainForm = class(TForm)
    btnOpen: TButton;
  end;

implementation

{$R *.dfm}

end.

unit Plain;

interface

uses
  Forms;

type
  TPlainForm = class(TForm)
  end;

var
  PlainForm: TPlainForm;

implementation

{$R *.dfm}

end.

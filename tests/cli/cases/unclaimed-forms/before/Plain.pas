unit Plain;

interface

uses
  Forms;

type
  TPlainForm = class(TForm)
  end;

implementation

{$R *.dfm}

end.

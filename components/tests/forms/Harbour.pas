unit Harbour;

interface

uses
  Forms, Mllang, Mllangtlv;

type
  THarbourForm = class(TForm)
  end;

var
  HarbourForm: THarbourForm;

implementation

{$R *.lfm}

end.

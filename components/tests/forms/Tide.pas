unit Tide;

interface

uses
  Forms, Mllang, Mllangtlv;

type
  TTideForm = class(TForm)
  end;

var
  TideForm: TTideForm;

implementation

{$R *.lfm}

end.

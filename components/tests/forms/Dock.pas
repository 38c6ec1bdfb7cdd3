unit Dock;

interface

uses
  Forms, Mllang, Mllangtlv;

type
  TDockForm = class(TForm)
  end;

var
  DockForm: TDockForm;

implementation

{$R *.lfm}

end.

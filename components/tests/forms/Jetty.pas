unit Jetty;

interface

uses
  Forms, StdCtrls, Mllang, Dock;

type
  TJettyForm = class(TDockForm)
    lblDepth: TLabel;
  end;

var
  JettyForm: TJettyForm;

implementation

{$R *.lfm}

end.

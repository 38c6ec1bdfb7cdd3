unit Quay;

interface

uses
  Forms, Mllang, Dock, Crane;

type
  TQuayForm = class(TDockForm)
    fraCrane: TCraneFrame;
  end;

var
  QuayForm: TQuayForm;

implementation

{$R *.lfm}

end.

unit Heir;

interface

uses
  Main;

type
  THeirForm = class(TMainForm)
  end;

implementation

{$R *.dfm}

end.

unit Crane;

interface

uses
  Forms, Mllang;

type
  TCraneFrame = class(TFrame)
  end;

implementation

{$R *.lfm}

end.

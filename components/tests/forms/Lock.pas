unit Lock;

interface

uses
  Forms, Mllang, Basin;

type
  TLockForm = class(TBasinForm)
  end;

var
  LockForm: TLockForm;

implementation

{$R *.lfm}

end.

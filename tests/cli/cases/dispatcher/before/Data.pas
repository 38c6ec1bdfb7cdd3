unit Data;

interface

uses
  Classes, Controls, Forms, Mllang;

type
  TData = class(TDataModule)
    mlDispatcher: TmlLangDispatcher;
  end;

implementation

{$R *.dfm}

end.

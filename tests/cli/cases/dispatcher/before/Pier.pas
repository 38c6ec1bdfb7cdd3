unit Pier;

interface

uses
  Classes, Controls, Forms, Mllang;

type
  TPierForm = class(TForm)
    mlLang1: TmlLang;
  end;

implementation

{$R *.dfm}

end.

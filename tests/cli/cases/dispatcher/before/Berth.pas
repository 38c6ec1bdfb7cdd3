unit Berth;

interface

uses
  Classes, Controls, Forms, Mllang;

type
  TBerthForm = class(TForm)
    mlLang1: TmlLang;
  end;

implementation

{$R *.dfm}

end.

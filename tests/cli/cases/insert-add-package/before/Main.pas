unit Main;

{$mode objfpc}{$H+}

interface

uses
  Forms;

type
  TMainForm = class(TForm)
  end;

var
  MainForm: TMainForm;

implementation

{$R *.lfm}

end.

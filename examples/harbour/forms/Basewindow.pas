{ What all dialogs have. }
unit Basewindow;

{$mode objfpc}{$H+}

interface

uses
  Classes, Forms, ExtCtrls, StdCtrls, Mllang;

type
  TBaseDialog = class(TForm)
    pnlButtons: TPanel;
    btnOK: TButton;
    btnCancel: TButton;
    mlLang_BaseDialog: TmlLang;
  end;

implementation

{$R *.lfm}

end.

{ The cargo of a ship. }
unit Cargopart;

{$mode objfpc}{$H+}

interface

uses
  Classes, Forms, StdCtrls, Mllang;

type
  TCargoFrame = class(TFrame)
    grpCargo: TGroupBox;
    lblKind: TLabel;
    cmbKind: TComboBox;
    chkDangerous: TCheckBox;
    mlLang_CargoFrame: TmlLang;
  end;

implementation

{$R *.lfm}

end.

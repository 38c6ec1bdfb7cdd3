{ Localizes a form; made for translations that are edited while the program runs. }
unit Mllangrtse;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mllangrt;

type
  TmlLangRTSE = class(TmlLangRT)
  end;

implementation

uses
  Classes;

initialization
  RegisterClass(TmlLangRTSE);

end.

{ Localizes a form; made for translations that are edited while the program runs. }
unit Mllangrtse;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mlcustomlang{$IFDEF FPC}, Mlvisual{$ENDIF};

type
  TmlLangRTSE = class(TmlCustomLang)
  end;

implementation

uses
  Classes;

initialization
  RegisterClass(TmlLangRTSE);

end.

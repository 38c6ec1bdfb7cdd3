{ The localization component that a form has usually. }
unit Mllang;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mlcustomlang{$IFDEF FPC}, Mlvisual{$ENDIF};

type
  TmlCustomLang = Mlcustomlang.TmlCustomLang;

  TmlLang = class(TmlCustomLang)
  end;

implementation

uses
  Classes;

initialization
  RegisterClass(TmlLang);

end.

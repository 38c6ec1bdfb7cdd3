{ Localizes a form; made for translation files that are loaded while the program runs. }
unit Mllangrt;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mlcustomlang{$IFDEF FPC}, Mlvisual{$ENDIF};

type
  TmlLangRT = class(TmlCustomLang)
  end;

implementation

uses
  Classes;

initialization
  RegisterClass(TmlLangRT);

end.

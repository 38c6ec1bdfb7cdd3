{ Registers the components with a form designer: the palette, the action, the list of languages. The order is the one
  that the tool itself keeps; what it has in between are editors that need it. }
unit Mlreg;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, PropEdits;

type
  { The active language is chosen from the component's languages. }
  TActiveLanguageProperty = class(TStringPropertyEditor)
  public
    function GetAttributes: TPropertyAttributes; override;
    procedure GetValues(Proc: TGetStrProc); override;
  end;

procedure Register;

implementation

uses
  ActnList, Mlcustomlang, Mlformstorage, Mllabel, Mllang, Mllangactions, Mllangcombo, Mllangdispatcher, Mllanglinked,
  Mllangrt, Mllangrtse, Mllangtlv, Mllanguages;

const
  Page = 'Velmora';

function TActiveLanguageProperty.GetAttributes: TPropertyAttributes;
begin
  Result := inherited GetAttributes + [paValueList, paMultiSelect, paRevertable];
end;

procedure TActiveLanguageProperty.GetValues(Proc: TGetStrProc);
var
  Languages: TmlLanguages;
  Place: Integer;
begin
  Languages := GetComponent(0) as TmlLanguages;
  for Place := 1 to Languages.LanguageCount do
    Proc(Languages.LanguageName(Place));
end;

procedure Register;
begin
  RegisterComponents(Page, [TmlLang, TmlLangRTSE, TmlLangRT, TmlLangLinked, TmlLangTLV, TmlLangDispatcher, TmlLabel,
    TmlFormStorage]);
  RegisterActions('mlLang', [TmlLangChangeLanguage], nil);
  RegisterPropertyEditor(TypeInfo(string), TmlCustomLang, 'Language', TActiveLanguageProperty);
  RegisterPropertyEditor(TypeInfo(string), TmlLangDispatcher, 'Language', TActiveLanguageProperty);
  RegisterComponents(Page, [TmlLangCombo]);
end;

end.

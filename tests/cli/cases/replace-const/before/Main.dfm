object MainForm: TMainForm
  Left = 0
  Top = 0
  Caption = 'Shop'
  OnCreate = FormCreate
  object mlLang1: TmlLang
    NumOfLanguages = 1
    Strings.Strings = (
      'strTitle'#1'Shop')
    OnChangeLanguage = mlLang1ChangeLanguage
  end
end

object BaseForm: TBaseForm
  Caption = 'Base'
  OnCreate = BaseCreate
  object mlLang_BaseForm: TmlLang
    NumOfLanguages = 2
    LangNames.Strings = (
      'English'
      'German')
    Strings.Strings = (
      'IDS_0'#1'Every form'#1'Jedes Fenster')
  end
end

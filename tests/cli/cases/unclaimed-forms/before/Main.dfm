object MainForm: TMainForm
  Caption = 'Orchard'
  object mlLang1: TmlLang
    NumOfLanguages = 2
    LangNames.Strings = (
      'English'
      'German')
    Captions.Strings = (
      '.Caption'#1'Orchard'#1'Obstgarten')
  end
end

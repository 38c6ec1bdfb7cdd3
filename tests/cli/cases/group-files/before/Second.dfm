object SecondForm: TSecondForm
  Caption = 'Cellar'
  object mlLang1: TmlLang
    NumOfLanguages = 2
    LangNames.Strings = (
      'English'
      'German')
    Captions.Strings = (
      '.Caption'#1'Cellar'#1'Keller')
  end
end

object MainForm: TMainForm
  Caption = 'Grove'
  object mlLang1: TmlLang
    NumOfLanguages = 2
    LangNames.Strings = (
      'English'
      'German')
    Captions.Strings = (
      '.Caption'#1'Grove'#1'Hain')
  end
end

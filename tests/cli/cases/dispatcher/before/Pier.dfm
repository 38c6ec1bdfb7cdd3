object PierForm: TPierForm
  Caption = 'Pier'
  object mlLang1: TmlLang
    NumOfLanguages = 3
    LangNames.Strings = (
      'English'
      'German'
      'French')
    Captions.Strings = (
      '.Caption'#1'Pier'#1'Mole'#1'Quai')
  end
end

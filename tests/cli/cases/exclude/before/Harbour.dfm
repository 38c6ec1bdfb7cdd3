object HarbourForm: THarbourForm
  Caption = 'Harbour'
  object lblTide: TLabel
    Hint = 'High or low'
    Caption = 'Tide:'
  end
  object mlLang1: TmlLang
    NumOfLanguages = 2
    LangNames.Strings = (
      'English'
      'German')
    IgnoreRemovals = True
    Captions.Strings = (
      'lblTide.Caption'#1'Tide:'#1'Gezeiten:')
  end
end

object BerthForm: TBerthForm
  Caption = 'Harbour'
  object btnOpen: TButton
    Caption = 'Close'
  end
  object mlLang1: TmlLang
    NumOfLanguages = 2
    LangNames.Strings = (
      'English'
      'German')
    Captions.Strings = (
      '.Caption'#1'Harbour'#1'Liegeplatz'
      'btnOpen.Caption'#1'Close'#1'Schlie'#223'en')
    Strings.Strings = (
      'IDS_1'#1'Harbour'#1'Hafen'
      'IDS_2'#1'Berth'#1'Platz')
  end
end

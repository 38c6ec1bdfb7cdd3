object BerthForm: TBerthForm
  Caption = 'Liegeplatz'
  object mlLang1: TmlLang
    NumOfLanguages = 3
    Dispatcher = Data.mlDispatcher
    LangNames.Strings = (
      'English'
      'German'
      'French')
    Captions.Strings = (
      '.Caption'#1'Berth'#1'Liegeplatz'#1'Poste')
  end
end

object ShipForm: TShipForm
  Caption = 'Schiff'
  object mlLang1: TmlLang
    NumOfLanguages = 3
    Dispatcher = Data.mlDispatcher
    LangNames.Strings = (
      'English'
      'German'
      'French')
    Captions.Strings = (
      '.Caption'#1'Ship'#1'Schiff'#1'Navire')
  end
end

object Data: TData
  object mlDispatcher: TmlLangDispatcher
    NumOfLanguages = 3
    LangNames.Strings = (
      'English'
      'German'
      'French')
    Language = 'German'
  end
end

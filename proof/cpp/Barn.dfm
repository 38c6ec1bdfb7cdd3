object BarnForm: TBarnForm
  Caption = 'Barn'
  object mlLang1: TmlLang
    NumOfLanguages = 1
  end
end

object GardenForm: TGardenForm
  Caption = 'Garden'
  object mlLang1: TmlLang
    NumOfLanguages = 1
  end
end

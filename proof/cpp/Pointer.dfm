object PointerForm: TPointerForm
  Caption = 'Pointer'
  object mlLang1: TmlLang
    NumOfLanguages = 1
  end
end

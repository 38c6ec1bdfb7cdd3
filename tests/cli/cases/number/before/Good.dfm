object GoodForm: TGoodForm
  object mlLang1: TmlLang
    NumOfLanguages = two
  end
end

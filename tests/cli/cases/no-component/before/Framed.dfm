object FramedForm: TFramedForm
  inline AddressFrame1: TAddressFrame
    inherited mlLang_AddressFrame: TmlLang
      NumOfLanguages = 3
    end
  end
end

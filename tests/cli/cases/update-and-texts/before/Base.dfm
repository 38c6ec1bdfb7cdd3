object BaseForm: TBaseForm
  Caption = 'Harbour'
  Font.Charset = DEFAULT_CHARSET
  Font.Height = -11
  Font.Name = 'Tahoma'
  object btnOK: TButton
    Caption = '&OK'
    Hint = 'Sail|Sails to the next harbour'
  end
  object mlLang: TmlLang
    NumOfLanguages = 2
    LangNames.Strings = (
      'English'
      'German')
    Captions.Strings = (
      '.Caption'#1'Harbor'#1'Hafen'
      'btnOK.Caption'#1'OK'#1'Gut'
      'btnGone.Caption'#1'Gone'#1'Weg')
  end
end

inherited GrandForm: TGrandForm
  Caption = 'Grand'
  inherited mlLang_BaseForm: TmlLang
    Language = 'German'
  end
end

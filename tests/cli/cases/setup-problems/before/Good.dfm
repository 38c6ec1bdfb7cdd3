object GoodForm: TGoodForm
  Caption = 'Good'
  object Button1: TButton
    Caption = 'Press me'
  end
end

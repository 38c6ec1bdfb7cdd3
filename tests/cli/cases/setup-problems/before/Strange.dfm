object StrangeForm: TStrangeForm
  Caption = 'Good'
  object Button1: TButton
    Caption = 'Press me'
  end
end

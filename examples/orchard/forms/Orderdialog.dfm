inherited OrderDialog: TOrderDialog
  Caption = 'New order'
  OldCreateOrder = True
  OnCreate = FormCreate
  PixelsPerInch = 96
  TextHeight = 13
  inherited OkButton: TButton
    Caption = '&Order'
  end
  object FruitBox: TComboBox [2]
    Left = 16
    Top = 16
    Width = 289
    Height = 21
    ItemHeight = 13
    Items.Strings = (
      'Apples'
      'Pears'
      'Plums')
    TabOrder = 2
  end
  object KilosEdit: TEdit [3]
    Left = 16
    Top = 48
    Width = 121
    Height = 21
    TabOrder = 3
    Text = '10'
  end
end

object TastingForm: TTastingForm
  Left = 300
  Top = 180
  BorderStyle = bsDialog
  Caption = 'Tasting notes'
  ClientHeight = 280
  ClientWidth = 360
  Font.Name = 'Tahoma'
  OldCreateOrder = False
  OnCreate = FormCreate
  OnShow = FormShow
  PixelsPerInch = 96
  TextHeight = 13
  object WineLabel: TLabel
    Left = 16
    Top = 16
    Width = 36
    Height = 13
    Caption = 'Tasting'
  end
  object SweetnessLabel: TLabel
    Left = 16
    Top = 44
    Width = 52
    Height = 13
    Caption = 'Sweetness'
    FocusControl = SweetnessBox
  end
  object SweetnessBox: TComboBox
    Left = 96
    Top = 40
    Width = 248
    Height = 21
    Style = csDropDownList
    ItemHeight = 13
    TabOrder = 0
  end
  object NotesMemo: TMemo
    Left = 16
    Top = 72
    Width = 328
    Height = 160
    Lines.Strings = (
      'Colour:'
      'Nose: cherries, a touch of cr'#232'me br'#251'l'#233'e'
      'Palate:')
    ScrollBars = ssVertical
    TabOrder = 1
  end
  object OkButton: TButton
    Left = 184
    Top = 244
    Width = 75
    Height = 25
    Caption = 'OK'
    Default = True
    TabOrder = 2
    OnClick = OkButtonClick
  end
  object CancelButton: TButton
    Left = 269
    Top = 244
    Width = 75
    Height = 25
    Cancel = True
    Caption = 'Cancel'
    ModalResult = 2
    TabOrder = 3
  end
end

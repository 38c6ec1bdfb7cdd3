object AboutBox: TAboutBox
  Left = 0
  Top = 0
  BorderStyle = bsDialog
  Caption = 'About Orchard'
  ClientHeight = 140
  ClientWidth = 260
  Font.Name = 'Tahoma'
  OnCreate = FormCreate
  PixelsPerInch = 96
  TextHeight = 13
  object ProductLabel: TLabel
    Left = 16
    Top = 16
    Width = 90
    Height = 13
    Caption = 'Orchard order book'
    OnClick = ProductLabelClick
  end
  object VersionLabel: TLabel
    Left = 16
    Top = 40
    Width = 100
    Height = 13
    Caption = 'Version'
  end
  object CloseButton: TButton
    Left = 96
    Top = 104
    Width = 75
    Height = 25
    Caption = 'Close'
    ModalResult = 1
    TabOrder = 0
  end
  object mlLang_AboutBox: TmlLang
    NumOfLanguages = 2
    LangNames.Strings = (
      'English'
      'German')
    Strings.Strings = (
      'IDS_0'#1'Orchard order book'#1'Orchard-Bestellbuch'
      
        'IDS_1'#1'Version 2.1 for farms of every size'#1'Version 2.1 f'#252'r H'#246'fe j' +
        'eder Gr'#246#223'e')
  end
end

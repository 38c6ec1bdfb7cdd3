object MainForm: TMainForm
  Left = 220
  Top = 107
  Width = 696
  Height = 480
  Caption = 'Orchard'
  Color = clBtnFace
  Font.Charset = DEFAULT_CHARSET
  Font.Color = clWindowText
  Font.Height = -11
  Font.Name = 'MS Sans Serif'
  Font.Style = []
  Menu = MainMenu
  OldCreateOrder = False
  OnCloseQuery = FormCloseQuery
  OnCreate = FormCreate
  PixelsPerInch = 96
  TextHeight = 13
  object StockList: TListView
    Left = 0
    Top = 41
    Width = 688
    Height = 368
    Align = alClient
    Columns = <
      item
        Caption = 'Fruit'
        Width = 160
      end
      item
        Alignment = taRightJustify
        Caption = 'In stock (kg)'
        Width = 120
      end>
    Items.Data = {
      3A0000000200000000000000FFFFFFFFFFFFFFFF0000000000000000054170706C
      6500000000FFFFFFFFFFFFFFFF00000000000000000450656172}
    TabOrder = 0
    ViewStyle = vsReport
  end
  object StatusBar: TStatusBar
    Left = 0
    Top = 409
    Width = 688
    Height = 19
    Panels = <>
    SimplePanel = True
  end
  object HintPanel: TPanel
    Left = 0
    Top = 0
    Width = 688
    Height = 41
    Align = alTop
    Caption = 
      'Prices are those of this morning'#39's market; they change until noo' +
      'n and are fixed afterwards.'
    TabOrder = 1
    object ReorderButton: TButton
      Left = 600
      Top = 8
      Width = 75
      Height = 25
      Anchors = [akTop, akRight]
      Caption = '&Reorder'
      TabOrder = 0
      OnClick = ReorderButtonClick
    end
  end
  object MainMenu: TMainMenu
    Left = 32
    Top = 88
    object FileMenu: TMenuItem
      Caption = '&File'
      object NewOrderItem: TMenuItem
        Caption = '&New order...'
        ShortCut = 16462
      end
      object N1: TMenuItem
        Caption = '-'
      end
      object ExitItem: TMenuItem
        Caption = 'E&xit'
        OnClick = ExitItemClick
      end
    end
    object HelpMenu: TMenuItem
      Caption = '&Help'
      object AboutItem: TMenuItem
        Caption = '&About...'
        OnClick = AboutItemClick
      end
      object TMenuItem
        Caption = 'Gr'#252#223'e'
      end
    end
  end
end

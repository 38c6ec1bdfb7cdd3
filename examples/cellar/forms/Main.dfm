object MainForm: TMainForm
  Left = 240
  Top = 120
  Width = 560
  Height = 400
  Caption = 'Cellar'
  Color = clBtnFace
  Font.Charset = DEFAULT_CHARSET
  Font.Color = clWindowText
  Font.Height = -11
  Font.Name = 'Tahoma'
  Font.Style = []
  Menu = MainMenu
  OldCreateOrder = False
  OnCloseQuery = FormCloseQuery
  OnCreate = FormCreate
  PixelsPerInch = 96
  TextHeight = 13
  object BarrelList: TListView
    Left = 0
    Top = 41
    Width = 552
    Height = 286
    Align = alClient
    Columns = <
      item
        Caption = 'Barrel'
        Width = 70
      end
      item
        Caption = 'Wine'
        Width = 180
      end
      item
        Caption = 'State'
        Width = 120
      end
      item
        Alignment = taRightJustify
        Caption = 'Litres'
        Width = 80
      end>
    HideSelection = False
    ReadOnly = True
    TabOrder = 0
    ViewStyle = vsReport
  end
  object ButtonPanel: TPanel
    Left = 0
    Top = 0
    Width = 552
    Height = 41
    Align = alTop
    TabOrder = 1
    object TasteButton: TButton
      Left = 8
      Top = 8
      Width = 89
      Height = 25
      Caption = '&Taste...'
      TabOrder = 0
      OnClick = TasteButtonClick
    end
    object RackButton: TButton
      Left = 104
      Top = 8
      Width = 89
      Height = 25
      Hint = 'Draws the wine off its lees; today'#39's sheet is opened.'
      Caption = '&Rack'
      ParentShowHint = False
      ShowHint = True
      TabOrder = 1
      OnClick = RackButtonClick
    end
  end
  object StatusBar: TStatusBar
    Left = 0
    Top = 327
    Width = 552
    Height = 19
    Panels = <>
    SimplePanel = True
    SimpleText = 'Ready'
  end
  object MainMenu: TMainMenu
    Left = 32
    Top = 96
    object CellarMenu: TMenuItem
      Caption = '&Cellar'
      object TasteItem: TMenuItem
        Caption = '&Taste...'
        ShortCut = 16468
        OnClick = TasteButtonClick
      end
      object ExportItem: TMenuItem
        Caption = '&Export...'
        OnClick = ExportItemClick
      end
      object N1: TMenuItem
        Caption = '-'
      end
      object ExitItem: TMenuItem
        Caption = 'E&xit'
        OnClick = ExitItemClick
      end
    end
  end
  object SaveDialog: TSaveDialog
    DefaultExt = 'html'
    Title = 'Export the cellar book'
    Left = 72
    Top = 96
  end
end

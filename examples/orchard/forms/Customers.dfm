object CustomersForm: TCustomersForm
  Left = 301
  Top = 122
  Width = 480
  Height = 360
  Caption = 'Customers'
  Font.Charset = DEFAULT_CHARSET
  Font.Height = -11
  Font.Name = 'Tahoma'
  Font.Style = [fsBold]
  OldCreateOrder = False
  Scaled = False
  OnShow = FormShow
  DesignSize = (
    472
    326)
  PixelsPerInch = 96
  TextHeight = 13
  object FindLabel: TLabel
    Left = 8
    Top = 12
    Width = 64
    Height = 13
    Caption = 'Type a name'
  end
  object CustomerGrid: TStringGrid
    Left = 8
    Top = 40
    Width = 289
    Height = 273
    ColCount = 3
    Options = [goFixedVertLine, goFixedHorzLine, goVertLine, goHorzLine]
    TabOrder = 0
    ColWidths = (
      120
      80
      64)
  end
  object FindEdit: TEdit
    Left = 88
    Top = 8
    Width = 209
    Height = 21
    TabOrder = 1
    OnChange = FindEditChange
  end
  inline Address: TAddressFrame
    Left = 304
    Top = 40
    Width = 161
    Height = 120
    TabOrder = 2
    inherited StreetLabel: TLabel
      Caption = 'Street and number'
    end
  end
end

object AddressFrame: TAddressFrame
  Left = 0
  Top = 0
  Width = 161
  Height = 120
  TabOrder = 0
  object StreetLabel: TLabel
    Left = 8
    Top = 8
    Width = 28
    Height = 13
    Caption = 'Street'
  end
  object TownLabel: TLabel
    Left = 8
    Top = 56
    Width = 27
    Height = 13
    Caption = 'Town'
  end
  object StreetEdit: TEdit
    Left = 8
    Top = 24
    Width = 145
    Height = 21
    TabOrder = 0
  end
  object TownEdit: TEdit
    Left = 8
    Top = 72
    Width = 145
    Height = 21
    TabOrder = 1
  end
end

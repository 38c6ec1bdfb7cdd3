object BaseDialog: TBaseDialog
  Left = 280
  Top = 200
  BorderStyle = bsDialog
  Caption = 'Dialog'
  ClientHeight = 180
  ClientWidth = 320
  Font.Name = 'Tahoma'
  OldCreateOrder = False
  PixelsPerInch = 96
  TextHeight = 13
  object OkButton: TButton
    Left = 152
    Top = 144
    Width = 75
    Height = 25
    Caption = 'OK'
    Default = True
    TabOrder = 0
    OnClick = OkButtonClick
  end
  object CancelButton: TButton
    Left = 236
    Top = 144
    Width = 75
    Height = 25
    Cancel = True
    Caption = 'Cancel'
    ModalResult = 2
    TabOrder = 1
  end
end

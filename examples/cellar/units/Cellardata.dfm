object CellarData: TCellarData
  OldCreateOrder = False
  OnCreate = DataModuleCreate
  Left = 220
  Top = 140
  Height = 150
  Width = 215
end

object StockData: TStockData
  OldCreateOrder = False
  Height = 150
  Width = 215
end

object GoodForm: TGoodForm
  Caption = 'x'
end

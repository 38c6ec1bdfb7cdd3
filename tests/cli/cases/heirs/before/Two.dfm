inherited TwoForm: TTwoForm
  Caption = 'Two'
end

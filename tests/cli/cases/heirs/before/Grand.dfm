inherited GrandForm: TGrandForm
  Caption = 'Grand'
end

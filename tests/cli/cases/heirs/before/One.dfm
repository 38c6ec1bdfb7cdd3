inherited OneForm: TOneForm
  Caption = 'One'
end

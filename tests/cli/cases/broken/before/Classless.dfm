object ClasslessForm: TClasslessForm
  Caption = 'x'
end

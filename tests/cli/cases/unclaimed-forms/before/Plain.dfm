object PlainForm: TPlainForm
  Caption = 'Plain'
end

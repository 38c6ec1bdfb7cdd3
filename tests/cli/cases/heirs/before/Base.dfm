object BaseForm: TBaseForm
  Caption = 'Base'
end

object StaticForm: TStaticForm
  Caption = 'Static'
  object mlLang1: TmlLang
    NumOfLanguages = 1
  end
end

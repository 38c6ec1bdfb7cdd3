object PlainForm: TPlainForm
  object btnOpen: TButton
    Caption = 'Open'
  end
end

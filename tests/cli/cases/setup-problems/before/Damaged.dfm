object DamagedForm: TDamagedForm
  Caption = 'Damaged
  object Button1: TButton
  end
end

object CutForm: TCutForm
  Caption = 'Cut'
  object Label1: TLabel

object CutoffForm: TCutoffForm
  Caption = 'x'
  object A: TLabel

object ProofForm: TProofForm
  object mlLang1: TmlLang
    NumOfLanguages = 1
  end
end

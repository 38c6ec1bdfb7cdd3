object MissingForm: TMissingForm
  object mlLang1: TmlLang
  end
end

object MainForm: TMainForm
  Caption = 'Hafen'
  object lblTide: TLabel
    Caption = 'Tide'
  end
  object memHelp: TMemo
    Lines.Strings = (
      'Erstens'
      'Zweitens')
  end
  object mlLang1: TmlLang
    NumOfLanguages = 2
    LangNames.Strings = (
      'English'
      'German')
    Language = 'German'
    Captions.Strings = (
      '.Caption'#1'Harbour'#1'Hafen'
      'lblTide.Caption'#1'Low water'#1'Tide')
    MultiLines.Strings = (
      'memHelp.Lines'#1'First'#2'nSecond'#1'Erstens'#2'nZweitens')
  end
end

object MainForm: TMainForm
  Caption = 'Hafen'
  object btnOpen: TButton
    Caption = '&Open...'
  end
  object btnClose: TButton
    Caption = 'CLOSE'
  end
  object memHelp: TMemo
    Lines.Strings = (
      'Harbour'
      ''
      'Tide')
  end
  object mlLang1: TmlLang
    NumOfLanguages = 3
    LangNames.Strings = (
      'English'
      'German'
      'French')
    Language = 'German'
    Captions.Strings = (
      '.Caption'#1'Harbour'#1'Hafen'#1'Port'
      'btnOpen.Caption'#1'&Open...'#1'&Open...'#1
      'btnClose.Caption'#1'CLOSE'#1'CLOSE'#1'Fermer')
    Fonts.Strings = (
      '.Font'#1'Open'#1'Open'#1'Open')
    MultiLines.Strings = (
      'memHelp.Lines'#1'Harbour'#2'n'#2'nTide'#1'Harbour'#2'n'#2'nTide'#1)
    Strings.Strings = (
      'IDS_OK'#1'OK'#1'OK'#1'OK'
      'IDS_TIDE'#1'Tide'#1#1
      'IDS_OPEN'#1'Open...'#1'Zu'#1
      'IDS_NONE'#1'No ship'#1'No ship'#1)
    States.Strings = (
      'Strings'#1'IDS_OPEN'#1'2'#1'stale'#1'Close')
  end
end

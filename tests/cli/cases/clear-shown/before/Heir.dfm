inherited HeirForm: THeirForm
  Caption = 'Pegel'
  inherited mlLang1: TmlLang
    Captions.Strings = (
      '.Caption'#1'Gauge'#1'Pegel'
      'lblTide.Caption'#1'Low water'#1'Tide')
  end
end

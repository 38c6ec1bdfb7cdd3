inherited ShipForm: TShipForm
  Caption = 'Ship'
  object lvCargo: TListView [1]
    Columns = <
      item
        Caption = 'Ton'
      end
      item
        Caption = 'Name'
      end
      item
        Caption = 'Weight'
      end>
  end
  object memHelp: TMemo
    Lines.Strings = (
      'First'
      'Second')
  end
  object edtName: TEdit
    Text = 'edtName'
  end
  inherited mlLang: TmlLang
    NumOfLanguages = 2
    LangNames.Strings = (
      'English'
      'German')
    Captions.Strings = (
      '.Caption'#1'Ship'#1'Schiff'
      'btnOK.Caption'#1'&OK'#1'&Gut')
    Collections.Strings = (
      'lvCargo.Columns[0].Caption'#1'Name'#1'Bezeichnung'
      'lvCargo.Columns[1].Caption'#1'Weight'#1'Gewicht')
    Strings.Strings = (
      'IDS_0'#1'No ship'#1'Kein Schiff')
    States.Strings = (
      'Collections'#1'lvCargo.Columns[1].Caption'#1'2'#1'stale'#1'Mass')
  end
end

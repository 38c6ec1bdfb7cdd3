object ShipForm: TShipForm
  Caption = 'Ship'
  object lblName: TLabel
    Hint = 'Name of the ship'
    Caption = 'Name:'
  end
  object btnOK: TButton
    Caption = '&OK'
  end
  object btnFolder: TButton
    Caption = 'C:\Log book'
  end
  object pnlCargo: TPanel
    Caption = 'Cargo'
    object lblWeight: TLabel
      Caption = 'Weight:'
    end
    object lvGoods: TListView
      Columns = <
        item
          Caption = 'Goods'
        end
        item
          Caption = 'Tons'
        end>
    end
  end
  object mlLang1: TmlLang
    NumOfLanguages = 2
    LangNames.Strings = (
      'English'
      'German')
    Captions.Strings = (
      '.Caption'#1'Ship'#1'Schiff'
      'lblName.Caption'#1'Name:'#1'Name:'
      'lblWeight.Caption'#1'Weight:'#1'Gewicht:')
    ExcludedProperties.Strings = (
      '!btnOK'
      '!btnGone')
  end
end

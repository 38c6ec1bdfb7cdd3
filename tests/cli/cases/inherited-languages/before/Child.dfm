inherited ChildForm: TChildForm
  Caption = 'Child'
  inherited mlLang_BaseForm: TmlLang
    Strings.Strings = (
      'IDS_7'#1'Of the child'#1'Vom Kind')
  end
end

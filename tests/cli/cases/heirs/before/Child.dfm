inherited ChildForm: TChildForm
  Caption = 'Child'
end

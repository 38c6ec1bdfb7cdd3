inherited Frame: TFrame
  Caption = 'Größe'
end

object Form1: TForm1
  Caption = 'One'
end

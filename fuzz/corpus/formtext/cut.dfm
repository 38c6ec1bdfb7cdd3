object A: TA
  Caption = 'x' +

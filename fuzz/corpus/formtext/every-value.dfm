object MainForm: TMainForm
  Left = -12
  Width = $1F
  Scale = 0.750000000000000000
  Caption = 'it'#39's'#13#10#1042#55357#57032''''
  Hint = 
    'sixty-four letters of a piece and some more, so that it goes on ' +
    'in a line'
  Font.Style = [fsBold, fsItalic]
  Empty = []
  Visible = True
  Owner = nil
  Action = Module1.Action1
  Items.Strings = (
    'one'
    ''
    'two')
  Numbers = (
    1
    -2.5)
  None.Strings = ()
  Columns = <
    item
      Caption = 'a'
      Width = 5
    end
    item
    end>
  Nothing = <>
  Icon = {0102FF}
  Bitmap = {
    0001020304050607080900010203040506070809000102030405060708090A0B
    0102}
  object Panel1: TPanel
    inherited Button1: TButton [2]
    end
    inline Frame1: TFrame
      object TMenuItem
      end
    end
  end
end

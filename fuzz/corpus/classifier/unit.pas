unit Main;
{$mode objfpc}{$modeswitch nestedcomments+}
interface
uses Classes, Sysutils in 'lib\sysutils.pas';
const Greeting = 'constant';
type TMainForm = class(TForm)
    procedure FormCreate(Sender: TObject);
  end;
resourcestring rs = 'resource';
implementation
{ it's { nested } 'in a comment' } (* don't *) // 'line'
procedure TMainForm.FormCreate(Sender: TObject);
begin
  Caption := 'it''s' + #13#10'x'^M + 'a'#$0D'b';
  Say('one', 'one', '', 'OK', '...');
  Text := '''
    several 'lines'
    ''';
  {TML:IGNORE ON}
  Say('ignored');
  {TML:TRANSLATE NEXT}
  Say('translated');
  {TML:IGNORE OFF}
  Say('line'); {TML:IGNORE}
  mlLang1.GetTextOrDefault('IDS_1' (* 'Close' *) );
  case C of 'a'..'z': Say('Close'); 'long': ; end;
  assert('x' = '');
  asm mov al, 'x' "it's" end;
end;
end.

{ Brought into a program it prints what the main form shows, once the program waits for its user, and ends it. }
unit Mlshownprogram;

{$MODE Delphi}

interface

implementation

uses
  Classes, Forms, Menus, StdCtrls, SysUtils, Mlcustomlang;

type
  TShown = class
    class procedure Idle(Sender: TObject; var Done: Boolean);
  end;

procedure Print(Component: TComponent);
begin
  if Component is TMenuItem then WriteLn(Component.Name, '=', TMenuItem(Component).Caption);
  if Component is TButton then WriteLn(Component.Name, '=', TButton(Component).Caption);
  if Component is TMemo then WriteLn(Component.Name, '=', TMemo(Component).Lines.CommaText);
  if Component is TmlCustomLang then WriteLn('IDS_0=', TmlCustomLang(Component).GetText('IDS_0'));
end;

class procedure TShown.Idle(Sender: TObject; var Done: Boolean);
var
  I: Integer;
begin
  for I := 0 to Application.MainForm.ComponentCount - 1 do
    Print(Application.MainForm.Components[I]);
  Flush(Output);
  Application.RemoveOnIdleHandler(TShown.Idle);
  Application.Terminate;
end;

initialization
  SetTextCodePage(Output, CP_UTF8);
  Application.AddOnIdleHandler(TShown.Idle);
end.

{ Picture FILE: takes a picture of the main form of the sample program in the language that TMLLANG_LANGUAGE names. }
program Picture;

{$mode objfpc}{$H+}

uses
  CThreads, Classes, SysUtils, Interfaces, Forms, Graphics, LCLIntf, LCLType, Portmodule, Mainwindow;

const
  Settle = 1000; { ms that the window gets to draw itself }

procedure Wait;
var
  Start: QWord;
begin
  Start := GetTickCount64;
  while GetTickCount64 - Start < Settle do
  begin
    Application.ProcessMessages;
    Sleep(10);
  end;
end;

{ What the screen shows where the form is, its menu included. }
procedure Take(Form: TForm; const FileName: string);
var
  Whole: TBitmap;
  Part: TPortableNetworkGraphic;
  Place: TRect;
  Screen: HDC;
begin
  GetWindowRect(Form.Handle, Place);
  Whole := TBitmap.Create;
  Part := TPortableNetworkGraphic.Create;
  Screen := GetDC(0);
  try
    Whole.LoadFromDevice(Screen);
    Part.SetSize(Place.Right - Place.Left, Place.Bottom - Place.Top);
    Part.Canvas.CopyRect(Rect(0, 0, Part.Width, Part.Height), Whole.Canvas, Place);
    Part.SaveToFile(FileName);
  finally
    ReleaseDC(0, Screen);
    Part.Free;
    Whole.Free;
  end;
end;

begin
  Application.Initialize;
  Application.CreateForm(TPortData, PortData);
  Application.CreateForm(TMainForm, MainForm);
  MainForm.Show;
  Wait;
  Take(MainForm, ParamStr(1));
end.

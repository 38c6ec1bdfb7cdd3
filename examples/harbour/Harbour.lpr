program Harbour;

{$mode objfpc}{$H+}

uses
  {$IFDEF UNIX}
  CThreads,
  {$ENDIF}
  Interfaces, Forms, Portmodule, Mainwindow, Basewindow, Shipwindow, Aboutwindow, Tidetable, Cargopart;

begin
  RequireDerivedFormResource := True;
  Application.Title := 'Harbour';
  Application.Initialize;
  Application.CreateForm(TPortData, PortData);
  Application.CreateForm(TMainForm, MainForm);
  Application.Run;
end.

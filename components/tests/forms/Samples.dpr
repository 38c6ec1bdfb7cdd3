{ The forms of this folder as a project, so that both sides read the same files. }
program Samples;

uses
  Forms,
  Harbour in 'Harbour.pas' {HarbourForm},
  Tide in 'Tide.pas' {TideForm},
  Dock in 'Dock.pas' {DockForm},
  Jetty in 'Jetty.pas' {JettyForm},
  Crane in 'Crane.pas' {CraneFrame: TFrame},
  Quay in 'Quay.pas' {QuayForm},
  Winch in 'Winch.pas' {WinchFrame: TFrame},
  Basin in 'Basin.pas' {BasinForm},
  Lock in 'Lock.pas' {LockForm};

begin
end.

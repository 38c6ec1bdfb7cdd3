{ Finds the moment at which a program waits for its user, for units that are linked into it to look at it. Dialogs with
  which it begins are cancelled. }
unit Programwatch;

{$MODE ObjFPC}{$H+}

interface

uses
  SysUtils, ExtCtrls;

type
  TProgramWatch = class
  private
    FTimer: TTimer;
    procedure Start(Data: PtrInt);
    procedure Look(Sender: TObject);
    procedure Failed(Sender: TObject; E: Exception);
    procedure CloseModalForms;
  protected
    { Writes down what happened, so that it is there should the program break down. }
    procedure Note(const What: string); virtual; abstract;
    { Called once, when the program waits; the program ends afterwards. }
    procedure Observe; virtual; abstract;
  public
    { Before the program's own units are initialized. }
    constructor Create;
  end;

implementation

uses
  CThreads, Classes, Interfaces, Forms, Controls, glib2, gtk2;

const
  { Between two looks at the program, in milliseconds. }
  Patience = 200;

function FindDialog: PGtkWidget;
var
  Windows, Next: PGList;
begin
  Result := nil;
  Windows := gtk_window_list_toplevels;
  Next := Windows;
  while (Next <> nil) and (Result = nil) do
  begin
    if GTK_IS_DIALOG(Next^.data) and GTK_WIDGET_VISIBLE(Next^.data) then Result := Next^.data;
    Next := Next^.next;
  end;
  g_list_free(Windows);
end;

{ A toolkit's own dialog runs a loop of its own, in which the program's calls wait. }
function CloseDialog(Watch: gpointer): gboolean; cdecl;
var
  Dialog: PGtkWidget;
begin
  Dialog := FindDialog;
  if Dialog <> nil then
  begin
    TProgramWatch(Watch).Note('closed: ' + gtk_window_get_title(PGtkWindow(Dialog)));
    gtk_dialog_response(PGtkDialog(Dialog), GTK_RESPONSE_CANCEL);
  end;
  Result := True;
end;

constructor TProgramWatch.Create;
begin
  Application.AddOnExceptionHandler(@Failed);
  Application.QueueAsyncCall(@Start, 0);
  g_timeout_add(Patience, @CloseDialog, Self);
end;

procedure TProgramWatch.Start(Data: PtrInt);
begin
  if FTimer <> nil then Exit;
  FTimer := TTimer.Create(nil);
  FTimer.Interval := Patience;
  FTimer.OnTimer := @Look;
end;

procedure TProgramWatch.Failed(Sender: TObject; E: Exception);
begin
  Note('exception: ' + E.ClassName + ': ' + E.Message);
end;

procedure TProgramWatch.CloseModalForms;
var
  I: Integer;
begin
  for I := Screen.CustomFormCount - 1 downto 0 do
    if fsModal in Screen.CustomForms[I].FormState then
    begin
      Note('closed: ' + Screen.CustomForms[I].ClassName);
      Screen.CustomForms[I].ModalResult := mrCancel;
      Exit;
    end;
end;

{ The timer stops only afterwards: what Observe makes may ask something, too. }
procedure TProgramWatch.Look(Sender: TObject);
begin
  if Application.ModalLevel > 0 then
    CloseModalForms
  else if (FTimer.Tag = 0) and (FindDialog = nil) then
  begin
    FTimer.Tag := 1;
    Observe;
    FTimer.Enabled := False;
    Application.Terminate;
  end;
end;

end.

{ Linked into a program for the proof of the layout, before all that its uses clause names. Once the program waits for
  its user, each form of the project is shown, those that the program has not made are made, and all their controls are
  written down (Layoutdump). It shares no code with the system.

  LAYOUT_FILE names the file for what it finds; its last line is "done". "note" and a text, separated by a tab, tell
  what went wrong. }
unit Layoutobserver;

{$MODE ObjFPC}{$H+}

interface

implementation

uses
  CThreads, Classes, SysUtils, Interfaces, Forms, Controls, ExtCtrls, Layoutdump, Shownclasses;

const
  { Between two looks at the program, in milliseconds. }
  Patience = 200;

type
  TLayoutObserver = class
  private
    FFile: string;
    FTimer: TTimer;
    FLines: TStringList;
    FStarted: Boolean;
    procedure Start(Data: PtrInt);
    procedure Look(Sender: TObject);
    procedure Failed(Sender: TObject; E: Exception);
    procedure Note(const What: string);
    procedure CloseModalForms;
    procedure Observe;
    procedure ObserveClass(FormClass: TComponentClass);
  end;

var
  Observer: TLayoutObserver;

procedure TLayoutObserver.Note(const What: string);
begin
  FLines.Add('note'#9 + StringReplace(What, LineEnding, ' ', [rfReplaceAll]));
  FLines.SaveToFile(FFile);
end;

procedure TLayoutObserver.Failed(Sender: TObject; E: Exception);
begin
  Note(E.ClassName + ': ' + E.Message);
end;

procedure TLayoutObserver.Start(Data: PtrInt);
begin
  if FTimer <> nil then Exit;
  FTimer := TTimer.Create(nil);
  FTimer.Interval := Patience;
  FTimer.OnTimer := @Look;
end;

{ Programs that ask something when they start are told to go on. }
procedure TLayoutObserver.CloseModalForms;
var
  I: Integer;
begin
  for I := Screen.CustomFormCount - 1 downto 0 do
    if fsModal in Screen.CustomForms[I].FormState then
    begin
      Screen.CustomForms[I].ModalResult := mrCancel;
      Exit;
    end;
end;

procedure TLayoutObserver.Look(Sender: TObject);
begin
  if Application.ModalLevel > 0 then
    CloseModalForms
  else if not FStarted then
  begin
    FStarted := True;
    Observe;
    FTimer.Enabled := False;
    Application.Terminate;
  end;
end;

function LiveForm(FormClass: TComponentClass): TCustomForm;
var
  I: Integer;
begin
  for I := 0 to Screen.CustomFormCount - 1 do
    if Screen.CustomForms[I].ClassType = FormClass then Exit(Screen.CustomForms[I]);
  Result := nil;
end;

procedure TLayoutObserver.ObserveClass(FormClass: TComponentClass);
var
  Form: TCustomForm;
begin
  if not FormClass.InheritsFrom(TCustomForm) then Exit;
  try
    Form := LiveForm(FormClass);
    if Form = nil then Form := TCustomForm(FormClass.Create(Application));
    ShowAtRest(Form);
    AddControls(Form, FLines);
  except
    on E: Exception do Note(FormClass.ClassName + ': ' + E.ClassName + ': ' + E.Message);
  end;
end;

procedure TLayoutObserver.Observe;
var
  I: Integer;
begin
  for I := 0 to High(FormClasses) do
    ObserveClass(FormClasses[I]);
  FLines.Add('done');
  FLines.SaveToFile(FFile);
end;

initialization
  if GetEnvironmentVariable('LAYOUT_FILE') <> '' then
  begin
    Observer := TLayoutObserver.Create;
    Observer.FFile := GetEnvironmentVariable('LAYOUT_FILE');
    Observer.FLines := TStringList.Create;
    Application.AddOnExceptionHandler(@Observer.Failed);
    Application.QueueAsyncCall(@Observer.Start, 0);
  end;

end.

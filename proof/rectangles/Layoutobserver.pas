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
  CThreads, Classes, SysUtils, Interfaces, Forms, Layoutdump, Proofclasses, Programwatch;

type
  TLayoutObserver = class(TProgramWatch)
  private
    FFile: string;
    FLines: TStringList;
    procedure ObserveClass(FormClass: TComponentClass);
  protected
    procedure Note(const What: string); override;
    procedure Observe; override;
  public
    constructor Create(const FileName: string);
  end;

var
  Observer: TLayoutObserver;

constructor TLayoutObserver.Create(const FileName: string);
begin
  inherited Create;
  FFile := FileName;
  FLines := TStringList.Create;
end;

procedure TLayoutObserver.Note(const What: string);
begin
  FLines.Add('note'#9 + StringReplace(What, LineEnding, ' ', [rfReplaceAll]));
  FLines.SaveToFile(FFile);
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
    Observer := TLayoutObserver.Create(GetEnvironmentVariable('LAYOUT_FILE'));

end.

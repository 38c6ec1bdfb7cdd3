{ The language of the whole program: what the environment variable TMLLANG_LANGUAGE names, else the one that was
  remembered, else what each component and dispatcher has as its own. }
unit Mlproglang;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Mllanguages;

{ Name of the language; '' where each component has its own. }
function ProgramLanguage: string;

{ Every component and dispatcher that knows the language changes to it, and those that are loaded later begin with it. }
procedure SetProgramLanguage(const Name: string);

{ Does the same, and the next run begins with it. '' forgets it. Raises EInOutError where the file cannot be written. }
procedure RememberLanguage(const Name: string);

{ For components. }
procedure RegisterForProgram(Component: TmlLanguages);
procedure UnregisterForProgram(Component: TmlLanguages);
procedure TakeProgramLanguage(Component: TmlLanguages);
procedure ApplyAppliersOf(Component: TmlLanguages);

implementation

uses
  Classes, SysUtils, Mlchange;

const
  Variable = 'TMLLANG_LANGUAGE';

var
  Components: TThreadList;
  Known: Boolean;
  Current: string;

function FileOfLanguage: string;
begin
  Result := GetAppConfigDir(False) + 'language';
end;

{ '' where nothing was remembered, or it cannot be read. }
function RememberedLanguage: string;
var
  Lines: TStringList;
begin
  Result := '';
  if not FileExists(FileOfLanguage) then Exit;
  Lines := TStringList.Create;
  try
    try
      Lines.LoadFromFile(FileOfLanguage);
      if Lines.Count > 0 then Result := Trim(Lines[0]);
    except
      on EStreamError do Result := '';
    end;
  finally
    Lines.Free;
  end;
end;

function ProgramLanguage: string;
begin
  if not Known then
  begin
    Current := GetEnvironmentVariable(Variable);
    if Current = '' then Current := RememberedLanguage;
    Known := True;
  end;
  Result := Current;
end;

procedure TakeProgramLanguage(Component: TmlLanguages);
var
  Place: Integer;
begin
  if (ProgramLanguage = '') or (csDesigning in Component.ComponentState) then Exit;
  Place := Component.PlaceOf(ProgramLanguage);
  if Place > 0 then Component.StoreLanguage(Place);
end;

procedure ApplyAppliersOf(Component: TmlLanguages);
var
  Appliers: TInterfaceList;
begin
  Appliers := TInterfaceList.Create;
  try
    Component.AddAppliers(Appliers);
    ApplyTogether(Appliers);
  finally
    Appliers.Free;
  end;
end;

procedure ChangeAll(List: TList);
var
  I: Integer;
  Appliers: TInterfaceList;
begin
  Appliers := TInterfaceList.Create;
  try
    for I := 0 to List.Count - 1 do
      TakeProgramLanguage(TmlLanguages(List[I]));
    for I := 0 to List.Count - 1 do
      TmlLanguages(List[I]).AddAppliers(Appliers);
    ApplyTogether(Appliers);
  finally
    Appliers.Free;
  end;
end;

{ Copied, since handlers may create and destroy components. }
function RegisteredComponents: TList;
begin
  Result := TList.Create;
  Result.Assign(Components.LockList);
  Components.UnlockList;
end;

procedure SetProgramLanguage(const Name: string);
var
  List: TList;
begin
  Current := Name;
  Known := True;
  List := RegisteredComponents;
  try
    ChangeAll(List);
  finally
    List.Free;
  end;
end;

procedure RememberLanguage(const Name: string);
var
  Lines: TStringList;
begin
  Lines := TStringList.Create;
  try
    Lines.Add(Name);
    if not ForceDirectories(ExtractFileDir(FileOfLanguage)) then
      raise EInOutError.CreateFmt('The folder of %s cannot be made', [FileOfLanguage]);
    Lines.SaveToFile(FileOfLanguage);
  finally
    Lines.Free;
  end;
  SetProgramLanguage(Name);
end;

procedure RegisterForProgram(Component: TmlLanguages);
begin
  Components.Add(Component);
end;

procedure UnregisterForProgram(Component: TmlLanguages);
begin
  Components.Remove(Component);
end;

initialization
  Components := TThreadList.Create;

finalization
  Components.Free;

end.

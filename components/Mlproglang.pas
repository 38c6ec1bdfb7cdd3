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

{ Copied, since handlers may create and destroy components. }
function RegisteredComponents: TmlComponents;
var
  I: Integer;
  List: TList;
begin
  List := Components.LockList;
  try
    SetLength(Result, List.Count);
    for I := 0 to High(Result) do
      Result[I] := TmlLanguages(List[I]);
  finally
    Components.UnlockList;
  end;
end;

procedure SetProgramLanguage(const Name: string);
var
  I: Integer;
  Registered: TmlComponents;
begin
  Current := Name;
  Known := True;
  Registered := RegisteredComponents;
  for I := 0 to High(Registered) do
    TakeProgramLanguage(Registered[I]);
  ApplyLanguages(Registered);
end;

{ Where a file of the name cannot be replaced in one step it goes before. }
procedure PutInPlace(const Written, FileName: string);
begin
  if RenameFile(Written, FileName) then Exit;
  DeleteFile(FileName);
  if RenameFile(Written, FileName) then Exit;
  DeleteFile(Written);
  raise EInOutError.CreateFmt('%s cannot be written', [FileName]);
end;

{ Another program that begins meanwhile reads the former name or this one. }
procedure WriteLanguage(const Name: string);
var
  Lines: TStringList;
  Written: string;
begin
  Written := FileOfLanguage + '.' + IntToStr(GetProcessID);
  Lines := TStringList.Create;
  try
    Lines.Add(Name);
    try
      Lines.SaveToFile(Written);
    except
      on E: EStreamError do raise EInOutError.Create(E.Message);
    end;
  finally
    Lines.Free;
  end;
  PutInPlace(Written, FileOfLanguage);
end;

procedure RememberLanguage(const Name: string);
begin
  if not ForceDirectories(ExtractFileDir(FileOfLanguage)) then
    raise EInOutError.CreateFmt('The folder of %s cannot be made', [FileOfLanguage]);
  WriteLanguage(Name);
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

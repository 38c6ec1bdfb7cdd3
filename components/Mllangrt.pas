{ Localizes a form; translations come from a file that the program has beside it. }
unit Mllangrt;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlcustomlang, Mllangtexts{$IFDEF FPC}, Mlvisual{$ENDIF};

type
  TmlLangRT = class(TmlCustomLang)
  private
    FFileName: string;
    FAsStreamed: TmlLangTexts;
    procedure SetFileName(const Value: string);
    procedure TakeFile;
    function MayGetDispatcher: Boolean;
  protected
    procedure AddTexts; override;
    { FileName with its folder. }
    function FileInFolder: string;
  public
    destructor Destroy; override;
  published
    { A translation file, .mll or .mlb; relative to the program's folder. What it has for the form is merged once the
      form is loaded, and when the name is set later. One that is not there is none; one that cannot be used is told
      by OnMissing. Nothing is read in a form designer. }
    property FileName: string read FFileName write SetFileName;
  end;

implementation

uses
  SysUtils;

destructor TmlLangRT.Destroy;
begin
  FAsStreamed.Free;
  inherited Destroy;
end;

procedure TmlLangRT.SetFileName(const Value: string);
begin
  FFileName := Value;
  if IsRunning then TakeFile;
end;

function IsAbsolute(const FileName: string): Boolean;
begin
  Result := (FileName[1] in ['/', '\']) or (Copy(FileName, 2, 1) = ':');
end;

function TmlLangRT.FileInFolder: string;
begin
  Result := FFileName;
  if (Result <> '') and not IsAbsolute(Result) then Result := ExtractFilePath(ParamStr(0)) + Result;
end;

procedure TmlLangRT.TakeFile;
begin
  if FileExists(FileInFolder) then MergeIfUsable(FileInFolder);
end;

{ One of a module that is not loaded yet; nobody can say whose references are open. }
function TmlLangRT.MayGetDispatcher: Boolean;
var
  Modules: TStringList;
begin
  Modules := TStringList.Create;
  try
    GetFixupReferenceNames(nil, Modules);
    Result := (Dispatcher = nil) and (Modules.Count > 0);
  finally
    Modules.Free;
  end;
end;

{ The languages of a dispatcher that comes later put other columns into the form's place. }
procedure TmlLangRT.AddTexts;
begin
  if FAsStreamed <> nil then
  begin
    WriteTexts(FAsStreamed);
    FreeAndNil(FAsStreamed);
  end
  else if MayGetDispatcher then
    FAsStreamed := ReadTexts;
  TakeFile;
end;

initialization
  RegisterClass(TmlLangRT);

end.

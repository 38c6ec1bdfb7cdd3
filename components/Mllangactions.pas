{ The action that changes the language, for menus and buttons. }
unit Mllangactions;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, ActnList, Mllanguages;

type
  TmlLangChangeLanguage = class(TAction)
  private
    FLanguages: TmlLanguages;
    FLanguage: string;
    FRemember: Boolean;
    procedure SetLanguages(Value: TmlLanguages);
    procedure LanguageChanged(Sender: TObject);
    function IsActive: Boolean;
    procedure ChangeLanguage;
  protected
    procedure Notification(AComponent: TComponent; Operation: TOperation); override;
  public
    constructor Create(AOwner: TComponent); override;
    destructor Destroy; override;
    function Execute: Boolean; override;
    { Checks the action where its language is active. }
    function Update: Boolean; override;
  published
    property DisableIfNoHandler default False;
    { The name of the language. }
    property Language: string read FLanguage write FLanguage;
    { Whose language changes: a component's, a dispatcher's, or the whole program's where there is none. }
    property Languages: TmlLanguages read FLanguages write SetLanguages;
    { Whether the next run of the program begins with the language; only of the whole program. }
    property Remember: Boolean read FRemember write FRemember default False;
  end;

implementation

uses
  Mlproglang, Mltext, Mlwatching;

constructor TmlLangChangeLanguage.Create(AOwner: TComponent);
begin
  inherited Create(AOwner);
  DisableIfNoHandler := False;
end;

destructor TmlLangChangeLanguage.Destroy;
begin
  if FLanguages <> nil then FLanguages.RemoveWatcher(LanguageChanged);
  FLanguages := nil;
  inherited Destroy;
end;

procedure TmlLangChangeLanguage.Notification(AComponent: TComponent; Operation: TOperation);
begin
  inherited Notification(AComponent, Operation);
  if (Operation = opRemove) and (AComponent = FLanguages) then FLanguages := nil;
end;

procedure TmlLangChangeLanguage.SetLanguages(Value: TmlLanguages);
begin
  Follow(FLanguages, Value, Self, LanguageChanged);
end;

function TmlLangChangeLanguage.IsActive: Boolean;
begin
  if FLanguages <> nil then
    Result := SameIgnoringCase(FLanguages.Language, FLanguage)
  else
    Result := SameIgnoringCase(ProgramLanguage, FLanguage);
end;

procedure TmlLangChangeLanguage.LanguageChanged(Sender: TObject);
begin
  if [csLoading, csDesigning, csDestroying] * ComponentState = [] then Checked := IsActive;
end;

procedure TmlLangChangeLanguage.ChangeLanguage;
begin
  if FLanguages <> nil then
    FLanguages.Language := FLanguage
  else if FRemember then
    RememberLanguage(FLanguage)
  else
    SetProgramLanguage(FLanguage);
end;

function TmlLangChangeLanguage.Execute: Boolean;
begin
  Result := Enabled and not (csDesigning in ComponentState);
  if not Result then Exit;
  ChangeLanguage;
  LanguageChanged(Self);
  inherited Execute;
end;

function TmlLangChangeLanguage.Update: Boolean;
begin
  LanguageChanged(Self);
  Result := inherited Update;
end;

initialization
  RegisterClass(TmlLangChangeLanguage);

end.

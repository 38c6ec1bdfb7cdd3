{ A label that shows a text by its ID in the active language. }
unit Mllabel;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, StdCtrls, Mlcustomlang, Mllanguages;

type
  TmlLabel = class(TLabel)
  private
    FLang: TmlLanguages;
    FTextID: string;
    function GetLang: TmlCustomLang;
    procedure SetLang(Value: TmlCustomLang);
    procedure SetTextID(const Value: string);
    procedure LanguageChanged(Sender: TObject);
    function HasCaption: Boolean;
  protected
    procedure Loaded; override;
    procedure Notification(AComponent: TComponent; Operation: TOperation); override;
  public
    destructor Destroy; override;
  published
    { Not stored where it is the text of an ID. }
    property Caption stored HasCaption;
    { Whose text it shows. }
    property Lang: TmlCustomLang read GetLang write SetLang;
    { '' for a label with a caption of its own. }
    property TextID: string read FTextID write SetTextID;
  end;

implementation

uses
  Mlwatching;

destructor TmlLabel.Destroy;
begin
  if FLang <> nil then FLang.RemoveWatcher(LanguageChanged);
  FLang := nil;
  inherited Destroy;
end;

procedure TmlLabel.Loaded;
begin
  inherited Loaded;
  LanguageChanged(Self);
end;

procedure TmlLabel.Notification(AComponent: TComponent; Operation: TOperation);
begin
  inherited Notification(AComponent, Operation);
  if (Operation = opRemove) and (AComponent = FLang) then FLang := nil;
end;

function TmlLabel.HasCaption: Boolean;
begin
  Result := (FLang = nil) or (FTextID = '');
end;

procedure TmlLabel.LanguageChanged(Sender: TObject);
begin
  if not HasCaption and not (csLoading in ComponentState) then Caption := Lang.GetText(FTextID);
end;

function TmlLabel.GetLang: TmlCustomLang;
begin
  Result := FLang as TmlCustomLang;
end;

procedure TmlLabel.SetLang(Value: TmlCustomLang);
begin
  Follow(FLang, Value, Self, LanguageChanged);
end;

procedure TmlLabel.SetTextID(const Value: string);
begin
  FTextID := Value;
  LanguageChanged(Self);
end;

initialization
  RegisterClass(TmlLabel);

end.

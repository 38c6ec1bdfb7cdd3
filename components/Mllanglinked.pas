{ A localization component that asks another one, such as that of a form with the common texts, for the IDs that it
  does not know. }
unit Mllanglinked;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlcustomlang{$IFDEF FPC}, Mlvisual{$ENDIF};

type
  TmlLangLinked = class(TmlCustomLang)
  private
    FCommonContainer: TmlCustomLang;
    procedure SetCommonContainer(Value: TmlCustomLang);
  protected
    function FindText(const ID: string; Hops: Integer; out Text: string): Boolean; override;
    procedure Notification(AComponent: TComponent; Operation: TOperation); override;
  published
    property CommonContainer: TmlCustomLang read FCommonContainer write SetCommonContainer;
  end;

implementation

const
  { Containers that ask each other in a circle know no more after so many. }
  MostHops = 16;

type
  TmlAsked = class(TmlCustomLang)
  end;

procedure TmlLangLinked.SetCommonContainer(Value: TmlCustomLang);
begin
  if FCommonContainer <> nil then FCommonContainer.RemoveFreeNotification(Self);
  FCommonContainer := Value;
  if Value <> nil then Value.FreeNotification(Self);
end;

procedure TmlLangLinked.Notification(AComponent: TComponent; Operation: TOperation);
begin
  inherited Notification(AComponent, Operation);
  if (Operation = opRemove) and (AComponent = FCommonContainer) then FCommonContainer := nil;
end;

function TmlLangLinked.FindText(const ID: string; Hops: Integer; out Text: string): Boolean;
begin
  Result := inherited FindText(ID, Hops, Text);
  if not Result and (FCommonContainer <> nil) and (Hops < MostHops) then
    Result := TmlAsked(FCommonContainer).FindText(ID, Hops + 1, Text);
end;

initialization
  RegisterClass(TmlLangLinked);

end.

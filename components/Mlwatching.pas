{ A component's link to the languages that it follows. }
unit Mlwatching;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mllanguages;

{ Links the follower to other languages (nil for none), so that it is told of changes, and when they go. }
procedure Follow(var Languages: TmlLanguages; Value: TmlLanguages; Follower: TComponent; const OnChange: TNotifyEvent);

implementation

procedure Follow(var Languages: TmlLanguages; Value: TmlLanguages; Follower: TComponent; const OnChange: TNotifyEvent);
begin
  if Value = Languages then Exit;
  if Languages <> nil then
  begin
    Languages.RemoveWatcher(OnChange);
    Languages.RemoveFreeNotification(Follower);
  end;
  Languages := Value;
  if Value <> nil then
  begin
    Value.AddWatcher(OnChange);
    Value.FreeNotification(Follower);
  end;
  OnChange(Value);
end;

end.

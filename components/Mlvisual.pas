{ Everything that the localization components need of the LCL. }
unit Mlvisual;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

implementation

uses
  Forms, Graphics, Mlcheckitems, Mlfontaccess, Mlformsurface, Mlloading, Mlviewitems;

type
  TmlLater = class
  private
    FCalled: Boolean;
    procedure Apply(Data: PtrInt);
  end;

var
  Later: TmlLater;

procedure TmlLater.Apply(Data: PtrInt);
begin
  FCalled := False;
  ApplyLoaded;
end;

procedure ApplySoon;
begin
  if Later.FCalled or (Application = nil) then Exit;
  Later.FCalled := True;
  Application.QueueAsyncCall(Later.Apply, 0);
end;

initialization
  Later := TmlLater.Create;
  ApplyLoadedSoon := ApplySoon;
  DefaultFontName := DefFontData.Name;
  WatchLoading(TCustomFrame);

finalization
  ApplyLoadedSoon := nil;
  if Application <> nil then Application.RemoveAsyncCalls(Later);
  Later.Free;

end.

{ Pointers to texts that stay valid until the program ends, as calls with a PChar need them. }
unit Mlpool;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

{ Each text is kept once, however often it is asked for; from any thread. }
function KeptText(const Text: string): PChar;

implementation

uses
  SyncObjs, Mlmap;

var
  Lock: TCriticalSection;
  Texts: TmlMap;

function KeptText(const Text: string): PChar;
begin
  Lock.Enter;
  try
    Result := PChar(Texts.KeyAt(Texts.Add(Text)));
  finally
    Lock.Leave;
  end;
end;

initialization
  Lock := TCriticalSection.Create;
  Texts := TmlMap.Create(64, True);

finalization
  Texts.Free;
  Lock.Free;

end.

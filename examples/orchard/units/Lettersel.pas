unit Lettersel;

{ Οι επιστολές προς τους πελάτες στην Ελλάδα. }

interface

function GreetingEl(const Name: string): string;
function OrderLetterEl(Kilos: Double): string;

implementation

uses
  SysUtils;

function GreetingEl(const Name: string): string;
begin
  if Name = '' then
    Result := 'Καλημέρα σας!'
  else
    Result := 'Αγαπητέ πελάτη ' + Name + ',';
end;

function OrderLetterEl(Kilos: Double): string;
begin
  Result := 'Η παραγγελία σας φεύγει αύριο το πρωί.'#13#10 +
    'Βάρος: ' + FormatFloat('0.0', Kilos) + ' κιλά'; // 'κιλά' και όχι 'kg'
end;

end.

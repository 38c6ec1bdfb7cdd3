unit Two;

interface

uses
  Forms, Cut;

type
  TTwoForm = class(TCutForm)
    procedure Go;
  end;

var
  TwoForm: TTwoForm;

implementation

procedure TTwoForm.Go;
begin
  Caption := 'Of the two';
  ShowText(PChar(Caption), 'For a pointer');
end;

end.

unit One;

interface

uses
  Forms, Cut;

type
  TOneForm = class(TCutForm)
    procedure Go;
  end;

var
  OneForm: TOneForm;

implementation

procedure TOneForm.Go;
begin
  Caption := 'Of the one';
  ShowText(PChar(Caption), 'For a pointer');
end;

end.

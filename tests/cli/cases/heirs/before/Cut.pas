unit Cut;

interface

uses
  Forms;

type
  TCutForm = class(TForm)
    procedure Go;
  end;

var
  CutForm: TCutForm;

implementation

procedure TCutForm.Go;
begin
  Caption := 'Of the cut';
  ShowText(PChar(Caption), 'For a pointer');
end;

end.

unit Grand;

interface

uses
  Forms, Child;

type
  TGrandForm = class(TChildForm)
    procedure Go;
  end;

var
  GrandForm: TGrandForm;

implementation

procedure TGrandForm.Go;
begin
  Caption := 'Of the grand';
  ShowText(PChar(Caption), 'For a pointer');
end;

end.

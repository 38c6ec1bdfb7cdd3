unit Child;

interface

uses
  Forms, Base;

type
  TChildForm = class(TBaseForm)
    procedure Go;
  end;

var
  ChildForm: TChildForm;

implementation

procedure TChildForm.Go;
begin
  Caption := 'Of the child';
  ShowText(PChar(Caption), 'For a pointer');
end;

end.

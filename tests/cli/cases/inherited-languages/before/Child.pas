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

{$R *.dfm}

procedure TChildForm.Go;
begin
  Caption := 'Only the child';
end;

end.

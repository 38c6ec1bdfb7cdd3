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

{$R *.dfm}

procedure TGrandForm.Go;
begin
  Caption := 'Only the grandchild';
end;

end.

unit Grand;

interface

uses
  Forms, Child;

const
  Motto = 'Third of its line';

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

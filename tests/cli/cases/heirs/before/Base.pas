unit Base;

interface

uses
  Forms;

type
  TBaseForm = class(TForm)
    procedure Go;
  end;

var
  BaseForm: TBaseForm;

implementation

procedure TBaseForm.Go;
begin
  Caption := 'Of the base';
  ShowText(PChar(Caption), 'For a pointer');
end;

end.

unit Named;

interface

uses
  Forms;

type
  TPlanningForm = class(TForm)
    procedure Go;
  end;

implementation

procedure TPlanningForm.Go;
begin
  Caption := 'Text of Named';
end;

end.

unit Second;

interface

uses
  Forms;

type
  TTwinForm = class(TForm)
    procedure Go;
  end;

implementation

procedure TTwinForm.Go;
begin
  Caption := 'Text of Second';
end;

end.

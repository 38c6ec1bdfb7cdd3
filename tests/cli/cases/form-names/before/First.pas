unit First;

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
  Caption := 'Text of First';
end;

end.

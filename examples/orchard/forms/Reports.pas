unit Reports;

interface

uses
  SysUtils, Classes, Controls, Forms, StdCtrls, ComCtrls;

type
  TReportForm = class(TForm)
    Memo: TMemo;
    Progress: TProgressBar;
    procedure FormActivate(Sender: TObject);
  private
    procedure WriteRow(const Name: string; Kilos: Double);
  end;

var
  ReportForm: TReportForm;

implementation

{$R *.dfm}

procedure TReportForm.WriteRow(const Name: string; Kilos: Double);
begin
  Memo.Lines.Add(Name + ^I + FormatFloat('0.00', Kilos) + ' kg');
end;

procedure TReportForm.FormActivate(Sender: TObject);
begin
  Memo.Lines.Text := 'Harvest report' + #13#10 + '==============';
  WriteRow('Apples', 812.5);
  WriteRow('Pears', 96);
  asm
    mov al, 'x'
  end;
  if Memo.Lines.Count > 2 then
    Memo.Lines.Add('End of report');
end;

end.

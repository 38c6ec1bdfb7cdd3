unit Main;

interface

uses
  Windows, Messages, SysUtils, Classes, Graphics, Controls, Forms,
  Dialogs, StdCtrls, ExtCtrls, Menus, ComCtrls;

type
  { Shown by the list in place of a name }
  TStockState = (ssEmpty, ssLow, ssFull);

  TMainForm = class(TForm)
    MainMenu: TMainMenu;
    FileMenu: TMenuItem;
    NewOrderItem: TMenuItem;
    N1: TMenuItem;
    ExitItem: TMenuItem;
    HelpMenu: TMenuItem;
    AboutItem: TMenuItem;
    StockList: TListView;
    StatusBar: TStatusBar;
    HintPanel: TPanel;
    ReorderButton: TButton;
    procedure FormCreate(Sender: TObject);
    procedure FormCloseQuery(Sender: TObject; var CanClose: Boolean);
    procedure ReorderButtonClick(Sender: TObject);
    procedure AboutItemClick(Sender: TObject);
    procedure ExitItemClick(Sender: TObject);
  private
    FOrders: Integer;
    procedure Greet(const Name: string = 'friend');
    function StateText(State: TStockState): string;
    function Weekday(const Code: string): string;
  end;

const
  RegistryKey = '\Software\Orchard';
  DefaultFruit: string = 'Apple';

resourcestring
  SNoPrinter = 'There is no printer on this machine.';

var
  MainForm: TMainForm;

implementation

uses
  About, Orderdialog, Pricing;

{$R *.dfm}
{$REGION 'Reading and writing'}

procedure LogLine(const Line: string);
begin
  OutputDebugString(PChar('orchard: ' + Line));
end;

{$ENDREGION}

procedure TMainForm.FormCreate(Sender: TObject);
begin
  Caption := 'Orchard';
  StatusBar.SimpleText := 'Ready';
  HintPanel.Caption := 'It''s harvest time: check today''s prices';
  ReorderButton.Hint := 'Orders'#13#10'what is short';
  LogLine('started'); {TML:IGNORE}
  Greet;
end;

procedure TMainForm.FormCloseQuery(Sender: TObject; var CanClose: Boolean);
begin
  // 'No question' when nothing is open
  if FOrders > 0 then
    CanClose := MessageDlg('There are open orders.' + #13 + 'Close all the same?', mtConfirmation,
      [mbYes, mbNo], 0) = mrYes;
end;

procedure TMainForm.Greet(const Name: string);
begin
  HintPanel.Caption := Format('Good morning, %s!', [Name]) + ' ' + 'Coffee is ready.';
end;

function TMainForm.StateText(State: TStockState): string;
begin
  case State of
    ssEmpty: Result := 'Sold out'; { was 'Empty' }
    ssLow: Result := 'Running low';
  else
    Result := 'In stock';
  end;
end;

function TMainForm.Weekday(const Code: string): string;
begin
  { The codes come from the till and are never shown. }
  {TML:IGNORE ON}
  if Code = 'MO' then
    {TML:TRANSLATE NEXT}
    Result := 'Monday'
  else if Code = 'TU' then
    {TML:TRANSLATE NEXT}
    Result := 'Tuesday';
  {TML:IGNORE OFF}
  {TML:IGNORE NEXT}
  if Code = 'SU' then
    Result := 'Sunday';
end;

procedure TMainForm.ReorderButtonClick(Sender: TObject);
var
  Text: string;
begin
  Text := 'Reorder' + #9 + DefaultFruit;
  if CharInSet('x', ['a'..'z']) then
    Inc(FOrders);
  StatusBar.SimpleText := 'Ready';
  ShowMessage(Text + ': ' + PriceText(12.5) + '...');
  LogLine(Text);
end;

procedure TMainForm.AboutItemClick(Sender: TObject);
begin
  with TAboutBox.Create(Self) do
  try
    ShowModal;
  finally
    Free;
  end;
end;

procedure TMainForm.ExitItemClick(Sender: TObject);
begin
  Close;
end;

end.

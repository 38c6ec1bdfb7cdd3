unit Main;

interface

uses
  Classes, Forms, Mllang;

type
  TMainForm = class(TForm)
    mlLang1: TmlLang;
    procedure FormCreate(Sender: TObject);
    procedure mlLang1ChangeLanguage(Sender: TObject);
    procedure UpdateStrings;
  private
    procedure Greet;
  end;

const
	Title: string = ''; (* 'Shop' *) // TML: Localized (Don't modify!)
  Welcome = 'Welcome to the shop'; { added later }
  {TML:IGNORE NEXT}
  LogName = 'shop.log';

var
  MainForm: TMainForm;

implementation

{$R *.dfm}

procedure TMainForm.FormCreate(Sender: TObject);
begin
  UpdateStrings;
  Caption := Title;
end;

procedure TMainForm.Greet;
const
  Hello = 'Hello, ' +
    'friend';
begin
  Caption := Hello;
end;

procedure TMainForm.mlLang1ChangeLanguage(Sender: TObject);
begin
  Self.UpdateStrings;
end;

procedure TMainForm.UpdateStrings;
begin
  Title := mlLang1.GetTextOrDefault('strTitle' (* 'Shop' *) );
end;

end.

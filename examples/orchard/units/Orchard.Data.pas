unit Orchard.Data;

interface

uses
  SysUtils, Classes;

type
  TOrchardData = class(TDataModule)
    procedure DataModuleCreate(Sender: TObject);
  private
    FFolder: string;
  public
    function LoadError(const FileName: string): string;
    property Folder: string read FFolder;
  end;

var
  OrchardData: TOrchardData;

implementation

{$R *.dfm}

procedure TOrchardData.DataModuleCreate(Sender: TObject);
begin
  FFolder := ExtractFilePath(ParamStr(0)) + 'data\'; {TML:IGNORE}
end;

function TOrchardData.LoadError(const FileName: string): string;
begin
  Result := 'The file ' + FileName + ' cannot be read.';
end;

end.

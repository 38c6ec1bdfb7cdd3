{ The dialogs of the family: those of the LCL under the names by which forms of every framework hold them. Their texts
  are entries of the table DlgsCaptions. }
unit Mldialogs;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Dialogs, ExtDlgs, PrintersDlgs;

type
  TmlOpenDialog = class(TOpenDialog)
  end;

  TmlSaveDialog = class(TSaveDialog)
  end;

  TmlOpenPictureDialog = class(TOpenPictureDialog)
  end;

  TmlSavePictureDialog = class(TSavePictureDialog)
  end;

  TmlFontDialog = class(TFontDialog)
  end;

  TmlColorDialog = class(TColorDialog)
  end;

  TmlPrintDialog = class(TPrintDialog)
  end;

  TmlPrinterSetupDialog = class(TPrinterSetupDialog)
  end;

  TmlFindDialog = class(TFindDialog)
  end;

  TmlReplaceDialog = class(TReplaceDialog)
  end;

  TmlBrowseForFolder = class(TSelectDirectoryDialog)
  private
    function GetFolder: string;
    procedure SetFolder(const Value: string);
  published
    { The folder that is offered, then the one that was chosen. }
    property Folder: string read GetFolder write SetFolder stored False;
  end;

  TmlTaskDialog = class(TTaskDialog)
  end;

implementation

function TmlBrowseForFolder.GetFolder: string;
begin
  Result := FileName;
end;

procedure TmlBrowseForFolder.SetFolder(const Value: string);
begin
  FileName := Value;
end;

initialization
  RegisterClasses([TmlOpenDialog, TmlSaveDialog, TmlOpenPictureDialog, TmlSavePictureDialog, TmlFontDialog,
    TmlColorDialog, TmlPrintDialog, TmlPrinterSetupDialog, TmlFindDialog, TmlReplaceDialog, TmlBrowseForFolder,
    TmlTaskDialog]);

end.

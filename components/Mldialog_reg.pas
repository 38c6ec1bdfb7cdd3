{ Registers the dialogs with a form designer. }
unit Mldialog_reg;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

procedure Register;

implementation

uses
  Classes, Mldialogs;

procedure Register;
begin
  RegisterComponents('mlDialogs', [TmlOpenDialog, TmlSaveDialog, TmlOpenPictureDialog, TmlSavePictureDialog,
    TmlFontDialog, TmlColorDialog, TmlPrintDialog, TmlPrinterSetupDialog, TmlFindDialog, TmlReplaceDialog,
    TmlBrowseForFolder, TmlTaskDialog]);
end;

end.

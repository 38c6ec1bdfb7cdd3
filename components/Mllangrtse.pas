{ Localizes a form; its translations are edited while the program runs. }
unit Mllangrtse;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mllangrt, Mllangtexts;

type
  TmlLangRTSE = class(TmlLangRT)
  private
    procedure TakeEdited(Texts: TmlLangTexts);
  public
    { Opens the window in which translations of the form are edited. Its OK shows them at once and saves them into
      the file of FileName, where other forms stay as they are. The cursor begins in the language of this name, '' for
      the active one. True when something was changed. }
    function EditTranslations(const Language: string = ''): Boolean;
  end;

implementation

uses
  SysUtils, Mllangfiles, Mlruneditor;

const
  NewDelimiter = '~!@#$';

{ What cannot be saved is not shown either. }
procedure TmlLangRTSE.TakeEdited(Texts: TmlLangTexts);
begin
  if FileExists(FileInFolder) then
    WriteForm(FileInFolder, '', FormName, Texts)
  else if FileName <> '' then
    WriteForm(FileInFolder, NewDelimiter, FormName, Texts);
  ShowEdited(Texts);
end;

function TmlLangRTSE.EditTranslations(const Language: string): Boolean;
var
  Texts: TmlLangTexts;
  Place: Integer;
begin
  Place := ActivePlace;
  if Language <> '' then Place := PlaceOf(Language);
  if Place = 0 then LanguageMissing(Language);
  Texts := ReadTexts;
  try
    Result := EditTexts(Texts, FormName, Place, TakeEdited);
  finally
    Texts.Free;
  end;
end;

initialization
  RegisterClass(TmlLangRTSE);

end.

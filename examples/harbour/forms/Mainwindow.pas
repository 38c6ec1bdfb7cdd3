{ The harbour at a glance: berths, ships, services and the log. }
unit Mainwindow;

{$mode objfpc}{$H+}

interface

uses
  Classes, SysUtils, Forms, Controls, ActnList, ComCtrls, Dialogs, ExtCtrls, Menus, StdCtrls, Mllangactions, Portmodule,
  Mllangtlv;

type
  TMainForm = class(TForm)
    mnuMain: TMainMenu;
    mniFile: TMenuItem;
    mniArrival: TMenuItem;
    mniSaveLog: TMenuItem;
    mniLine: TMenuItem;
    mniQuit: TMenuItem;
    mniView: TMenuItem;
    mniTides: TMenuItem;
    mniLanguage: TMenuItem;
    mniEnglish: TMenuItem;
    mniGerman: TMenuItem;
    mniHebrew: TMenuItem;
    mniHelp: TMenuItem;
    mniAbout: TMenuItem;
    trvBerths: TTreeView;
    splBerths: TSplitter;
    pnlRight: TPanel;
    lvShips: TListView;
    pnlBottom: TPanel;
    lblServices: TLabel;
    lstServices: TListBox;
    lblLog: TLabel;
    memLog: TMemo;
    barStatus: TStatusBar;
    lstActions: TActionList;
    actEnglish: TmlLangChangeLanguage;
    actGerman: TmlLangChangeLanguage;
    actHebrew: TmlLangChangeLanguage;
    mlLangTLV_MainForm: TmlLangTLV;
    procedure FormCreate(Sender: TObject);
    procedure LanguageChanged(Sender: TObject);
    procedure mniAboutClick(Sender: TObject);
    procedure mniArrivalClick(Sender: TObject);
    procedure mniQuitClick(Sender: TObject);
    procedure mniSaveLogClick(Sender: TObject);
    procedure mniTidesClick(Sender: TObject);
  private
    procedure ShowShips;
  end;

var
  MainForm: TMainForm;

implementation

{$R *.lfm}

uses
  Aboutwindow, Shipwindow, Tidetable;

procedure TMainForm.FormCreate(Sender: TObject);
begin
  ShowShips;
end;

{ What the program itself has put into the controls. }
procedure TMainForm.LanguageChanged(Sender: TObject);
begin
  ShowShips;
end;

procedure TMainForm.ShowShips;
var
  I: Integer;
  Item: TListItem;
begin
  lvShips.Items.BeginUpdate;
  lvShips.Items.Clear;
  for I := 0 to PortData.ShipCount - 1 do
  begin
    Item := lvShips.Items.Add;
    Item.Caption := PortData.Ships[I].Name;
    Item.SubItems.Add(IntToStr(PortData.Ships[I].Tons));
    Item.SubItems.Add(PortData.StateText(PortData.Ships[I].State));
  end;
  lvShips.Items.EndUpdate;
  barStatus.Panels[1].Text := Format(mlLangTLV_MainForm.GetTextOrDefault('IDS_0' (* '%d ships, %d tons in port' *) ), [PortData.ShipCount, PortData.TonsInPort]);
end;

procedure TMainForm.mniArrivalClick(Sender: TObject);
var
  Dialog: TShipDialog;
begin
  Dialog := TShipDialog.Create(Self);
  try
    if Dialog.ShowModal <> mrOK then Exit;
    PortData.Add(Dialog.edtName.Text, Dialog.edtTons.Value, ssInPort);
    memLog.Lines.Add(PortData.ArrivalText(PortData.Ships[PortData.ShipCount - 1]));
    ShowShips;
  finally
    Dialog.Free;
  end;
end;

procedure TMainForm.mniSaveLogClick(Sender: TObject);
begin
  if not PortData.dlgSave.Execute then Exit;
  memLog.Lines.SaveToFile(PortData.dlgSave.FileName);
  ShowMessage(Format(mlLangTLV_MainForm.GetTextOrDefault('IDS_1' (* 'The log is in %s.' *) ), [PortData.dlgSave.FileName]));
end;

procedure TMainForm.mniTidesClick(Sender: TObject);
begin
  TTidesForm.Create(Self).Show;
end;

procedure TMainForm.mniAboutClick(Sender: TObject);
var
  Dialog: TAboutDialog;
begin
  Dialog := TAboutDialog.Create(Self);
  Dialog.ShowModal;
  Dialog.Free;
end;

procedure TMainForm.mniQuitClick(Sender: TObject);
begin
  Close;
end;

end.

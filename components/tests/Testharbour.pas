{ The sample program: Testharbour FILE, its translation file. }
program Testharbour;

{$MODE Delphi}

uses
  CThreads, Classes, SysUtils, Interfaces, Forms, StdCtrls, Mlcustomlang, Mllangfiles, Mlloading, Mlopenfile, Mlproglang,
  Portmodule, Mainwindow, Basewindow, Shipwindow, Aboutwindow, Tidetable, Cargopart, Mltesting;

type
  TEvents = class
    Log: string;
    procedure Missing(Sender: TObject; Kind: TmlMissingKind; const Name: string);
    procedure Kept(Sender: TObject; const Key, Text: string);
  end;

var
  Events: TEvents;
  Parts: array[0..6] of TComponent;

procedure TEvents.Missing(Sender: TObject; Kind: TmlMissingKind; const Name: string);
begin
  Log := Log + 'missing ' + Name + ';';
end;

procedure TEvents.Kept(Sender: TObject; const Key, Text: string);
begin
  Log := Log + 'kept ' + Key + ';';
end;

function LangOf(Owner: TComponent): TmlCustomLang;
var
  I: Integer;
begin
  Result := nil;
  for I := Owner.ComponentCount - 1 downto 0 do
    if Owner.Components[I] is TmlCustomLang then Result := TmlCustomLang(Owner.Components[I]);
end;

procedure Open;
var
  Part: TComponent;
begin
  PortData := TPortData.Create(nil);
  MainForm := TMainForm.Create(nil);
  Parts[0] := MainForm;
  Parts[1] := TBaseDialog.Create(nil);
  Parts[2] := TShipDialog.Create(nil);
  Parts[3] := TAboutDialog.Create(nil);
  Parts[4] := TTidesForm.Create(nil);
  Parts[5] := TCargoFrame.Create(nil);
  Parts[6] := PortData;
  for Part in Parts do
  begin
    LangOf(Part).OnMissing := Events.Missing;
    LangOf(Part).OnKept := Events.Kept;
  end;
end;

procedure Close;
var
  I: Integer;
begin
  for I := 0 to High(Parts) do
    FreeAndNil(Parts[I]);
end;

function Shown: string;
begin
  Result := MainForm.trvBerths.Items[0].Text + ';' + MainForm.lvShips.Column[0].Caption + ';' +
    MainForm.lvShips.Items[2].SubItems[1] + ';' + MainForm.barStatus.Panels[1].Text + ';' +
    TShipDialog(Parts[2]).btnOK.Caption + ';' + TShipDialog(Parts[2]).fraCargo.grpCargo.Caption + ';' +
    TShipDialog(Parts[2]).fraCargo.cmbKind.Items[1] + ';' + TTidesForm(Parts[4]).grdTides.Cells[1, 1];
end;

procedure TestLanguages;
const
  English = 'North quay;Ship;Expected;4 ships, 5050 tons in port;&Arrive;Cargo on board;Timber;Low water';
begin
  ExpectText(English, Shown, 'the base language');
  SetProgramLanguage('German');
  ExpectText('Nordkai;Schiff;Erwartet;4 Schiffe, 5050 Tonnen im Hafen;&Ankommen;Ladung an Bord;Holz;Niedrigwasser',
    Shown, 'German');
  Expect(MainForm.BiDiMode = bdLeftToRight, 'written from the left');
  SetProgramLanguage('Hebrew');
  ExpectText('רציף צפוני;אונייה;צפויה;4 אוניות, 5050 טונות בנמל;ה&געה;המטען באונייה;עצים;שפל', Shown, 'Hebrew');
  Expect(MainForm.BiDiMode = bdRightToLeft, 'written from the right');
  SetProgramLanguage('English');
  ExpectText(English, Shown, 'and back');
  ExpectText('', Events.Log, 'every entry of every form has its property');
end;

{ What the forms hold and what the translators have is the same. }
procedure TestFile(const FileName: string);
var
  Copied: string;
  Part: TComponent;
  Bytes: TStringStream;
begin
  TranslationProject := 'Harbour';
  Copied := GetEnvironmentVariable('HOME') + '/Harbour.mll';
  Bytes := TStringStream.Create(BytesOfFile(FileName));
  Bytes.SaveToFile(Copied);
  Bytes.Free;
  for Part in Parts do
  begin
    LangOf(Part).LoadAllFromFile(FileName);
    ExpectText('', LangOf(Part).Report.Text, Part.ClassName + ' loaded');
    LangOf(Part).SaveAllToFile(Copied, '');
  end;
  ExpectText(BytesOfFile(FileName), BytesOfFile(Copied), 'every form saved');
end;

begin
  Application.Initialize;
  Events := TEvents.Create;
  Open;
  TestLanguages;
  TestFile(ParamStr(1));
  Close;
  Events.Free;
  CloseTests;
end.

{ Benchlang: what texts by their IDs and a change of language cost, beside the same work done by hand.
  Milliseconds, medians of five; wants a display. }
program Benchlang;

{$MODE Delphi}

uses
  CThreads, BaseUnix, Linux, UnixType, Classes, SysUtils, IniFiles, Interfaces, Forms, StdCtrls, Mlcustomlang, Mllang;

const
  Texts = 20000;
  Controls = 1000;

type
  TWork = procedure;

var
  Lang: TmlLang;
  IDs: array[0..Texts - 1] of string;
  Hashed: THashedStringList;
  Shown: array[0..Texts - 1] of string;
  Form: TForm;
  Captions: array[0..Controls - 1, Boolean] of string;
  Other: Boolean;
  Total: Integer;

{ Of the processor, so that other programs count little. }
function Clock: Double;
var
  Time: TTimeSpec;
begin
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, @Time);
  Result := Time.tv_sec * 1000.0 + Time.tv_nsec / 1000000;
end;

function Milliseconds(Work: TWork): Double;
var
  Runs: array[0..4] of Double;
  I, K: Integer;
  Start, Swap: Double;
begin
  for I := 0 to 4 do
  begin
    Start := Clock;
    K := 0;
    repeat
      Work;
      Inc(K);
    until Clock - Start >= 100;
    Runs[I] := (Clock - Start) / K;
    for K := I downto 1 do
      if Runs[K] < Runs[K - 1] then
      begin
        Swap := Runs[K];
        Runs[K] := Runs[K - 1];
        Runs[K - 1] := Swap;
      end;
  end;
  Result := Runs[2];
end;

procedure AskLang;
var
  I: Integer;
begin
  for I := 0 to Texts - 1 do
    Inc(Total, Length(Lang.GetText(IDs[I])));
end;

procedure AskList;
var
  I: Integer;
begin
  for I := 0 to Texts - 1 do
    Inc(Total, Length(Shown[Hashed.IndexOf(IDs[I])]));
end;

procedure ChangeLanguage;
begin
  Other := not Other;
  Lang.Language := Lang.LanguageName(1 + Ord(Other));
end;

procedure ChangeByHand;
var
  I: Integer;
begin
  Other := not Other;
  Form.DisableAutoSizing;
  for I := 0 to Controls - 1 do
    TLabel(Form.Components[I]).Caption := Captions[I, Other];
  Form.EnableAutoSizing;
end;

procedure MakeTexts;
var
  I: Integer;
begin
  Lang := TmlLang.Create(nil);
  Lang.NumOfLanguages := 2;
  Hashed := THashedStringList.Create;
  Lang.Strings.BeginUpdate;
  for I := 0 to Texts - 1 do
  begin
    IDs[I] := 'IDS_' + IntToStr(I);
    Shown[I] := 'Text number ' + IntToStr(I);
    Lang.Strings.Add(IDs[I] + #1 + Shown[I] + #1'Text Nummer ' + IntToStr(I));
    Hashed.Add(IDs[I]);
  end;
  Lang.Strings.EndUpdate;
end;

procedure MakeForm;
var
  I: Integer;
  Text: TLabel;
begin
  Form := TForm.CreateNew(nil);
  Form.SetBounds(0, 0, 1000, 800);
  for I := 0 to Controls - 1 do
  begin
    Text := TLabel.Create(Form);
    Text.Name := 'Label' + IntToStr(I);
    Captions[I, False] := 'Label number ' + IntToStr(I);
    Captions[I, True] := 'Beschriftung Nummer ' + IntToStr(I);
    Text.Caption := Captions[I, False];
    Text.SetBounds(I mod 10 * 100, I div 10 * 8, 90, 8);
    Text.Parent := Form;
  end;
  Lang := TmlLang.Create(Form);
  Lang.NumOfLanguages := 2;
  for I := 0 to Controls - 1 do
    Lang.Captions.Add(Form.Components[I].Name + '.Caption'#1 + Captions[I, False] + #1 + Captions[I, True]);
  Other := False;
end;

procedure Print(const What: string; Work: TWork);
begin
  Work;
  WriteLn(Format('%-45s %8.3f ms', [What, Milliseconds(Work)]));
  Flush(Output);
end;

{ Leaves the form in the base language. }
procedure PrintChange(const What: string; Work: TWork);
begin
  Print(What, Work);
  if Other then Work;
end;

begin
  Application.Initialize;
  MakeTexts;
  Print('GetText of 20,000 IDs', AskLang);
  Print('a hashed string list', AskList);
  Lang.Free;
  Hashed.Free;
  MakeForm;
  PrintChange('1,000 controls, invisible: change of language', ChangeLanguage);
  PrintChange('by hand', ChangeByHand);
  Form.Show;
  Application.ProcessMessages;
  PrintChange('1,000 controls, visible: change of language', ChangeLanguage);
  PrintChange('by hand', ChangeByHand);
  Form.Free;
end.

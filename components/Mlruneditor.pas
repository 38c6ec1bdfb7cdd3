{ The window in which the user of a program edits the translations of a form. }
unit Mlruneditor;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mllangtexts;

type
  { Saves the texts and shows them. EmlTranslationFile where they cannot be saved; the window then stays open. }
  TmlTakeTexts = procedure(Texts: TmlLangTexts) of object;

{ True when the person has changed something and not given it up. The cursor begins in the language of the place, which
  counts from 1 for the base language. }
function EditTexts(Texts: TmlLangTexts; const FormName: string; Place: Integer; Take: TmlTakeTexts): Boolean;

implementation

uses
  {$IFDEF FPC}LCLIntf, LCLType,{$ELSE}Windows,{$ENDIF} Controls, ExtCtrls, Forms, Graphics, Grids, StdCtrls, SysUtils, Mltextrows,
  Mltranslationfile;

resourcestring
  SEditorCaption = 'Translations of %s';
  SEditorFilter = '&Filter:';
  SEditorKey = 'Key';
  SEditorOK = 'OK';
  SEditorCancel = 'Cancel';
  SEditorGiveUp = 'Give up the changes?';

const
  { What stands for a line break in the grid. }
  BreakSign = #$E2#$8F#$8E;
  { Of the grid; the languages follow, the base language first. }
  KeyColumn = 0;
  BaseColumn = 1;
  { In pixels of 96 to the inch. }
  Space = 6;
  LeastColumn = 100;

type
  TmlRunEditor = class(TForm)
  private
    FTexts: TmlLangTexts;
    FRows: TmlTextRows;
    FTake: TmlTakeTexts;
    FGridWidth: Integer;
    FFilling: Boolean;
    FLeft: TPanel;
    edtFilter: TEdit;
    grdTexts: TStringGrid;
    lblBase, lblText: TLabel;
    memBase, memText: TMemo;
    function Scaled96(Pixels: Integer): Integer;
    function NewPanel(Parent: TWinControl; Align: TAlign): TPanel;
    function NewMemo(Parent: TPanel; const Name: string; out Above: TLabel): TMemo;
    procedure NewButton(Parent: TPanel; const Name, Caption: string; Handler: TNotifyEvent; Choice: TModalResult);
    procedure BuildFilter;
    procedure BuildGrid;
    procedure BuildMemos;
    procedure BuildButtons;
    procedure FillGrid;
    function PlaceOf(Column: Integer): Integer;
    procedure Turn(Memo: TMemo; Place: Integer);
    procedure ShowCell(Column, Row: Integer);
    procedure GridResized(Sender: TObject);
    procedure MemosResized(Sender: TObject);
    procedure CellSelected(Sender: TObject; Column, Row: Integer; var CanSelect: Boolean);
    procedure CellEdited(Sender: TObject; Column, Row: Integer; const Value: string);
    {$IFDEF FPC}
    procedure CellDrawn(Sender: TObject; Column, Row: Integer; State: TGridDrawState);
    procedure CellEditorChosen(Sender: TObject; Column, Row: Integer; var Editor: TWinControl);
    {$ENDIF}
    procedure FilterChanged(Sender: TObject);
    procedure MemoChanged(Sender: TObject);
    procedure OKClicked(Sender: TObject);
    procedure MayClose(Sender: TObject; var CanClose: Boolean);
  public
    constructor CreateFor(Texts: TmlLangTexts; const FormName: string; Place: Integer; Take: TmlTakeTexts);
    destructor Destroy; override;
    property Rows: TmlTextRows read FRows;
  end;

function HasBreak(const Text: string): Boolean;
begin
  Result := (Pos(#10, Text) > 0) or (Pos(#13, Text) > 0);
end;

function WithBreaks(const Text, Ending: string): string;
begin
  Result := StringReplace(StringReplace(Text, #13#10, #10, [rfReplaceAll]), #13, #10, [rfReplaceAll]);
  if Ending <> #10 then Result := StringReplace(Result, #10, Ending, [rfReplaceAll]);
end;

constructor TmlRunEditor.CreateFor(Texts: TmlLangTexts; const FormName: string; Place: Integer; Take: TmlTakeTexts);
begin
  inherited CreateNew(nil);
  FTexts := Texts;
  FTake := Take;
  FRows := TmlTextRows.Create(Texts);
  Caption := Format(SEditorCaption, [FormName]);
  Position := poScreenCenter;
  SetBounds(0, 0, Scaled96(760), Scaled96(520));
  Constraints.MinWidth := Scaled96(360);
  Constraints.MinHeight := Scaled96(360);
  OnCloseQuery := MayClose;
  BuildFilter;
  BuildGrid;
  BuildMemos;
  BuildButtons;
  FillGrid;
  if Place > 1 then grdTexts.Col := BaseColumn + Place - 1;
  ShowCell(grdTexts.Col, grdTexts.Row);
  ActiveControl := grdTexts;
end;

destructor TmlRunEditor.Destroy;
begin
  grdTexts.OnSelectCell := nil;
  FRows.Free;
  inherited Destroy;
end;

function TmlRunEditor.Scaled96(Pixels: Integer): Integer;
begin
  Result := Pixels * Screen.PixelsPerInch div 96;
end;

{ The controls }

procedure Distance(Control: TControl; Pixels: Integer);
begin
  {$IFDEF FPC}
  Control.BorderSpacing.Around := Pixels;
  {$ELSE}
  Control.AlignWithMargins := True;
  Control.Margins.SetBounds(Pixels, Pixels, Pixels, Pixels);
  {$ENDIF}
end;

function TmlRunEditor.NewPanel(Parent: TWinControl; Align: TAlign): TPanel;
begin
  Result := TPanel.Create(Self);
  Result.BevelOuter := bvNone;
  Result.ParentColor := True;
  Result.Parent := Parent;
  Result.Align := Align;
end;

procedure TmlRunEditor.BuildFilter;
var
  Panel: TPanel;
  Title: TLabel;
begin
  Panel := NewPanel(Self, alTop);
  Panel.AutoSize := True;
  Title := TLabel.Create(Self);
  Title.Parent := Panel;
  Title.Align := alLeft;
  Title.Layout := tlCenter;
  Title.Caption := SEditorFilter;
  edtFilter := TEdit.Create(Self);
  edtFilter.Name := 'edtFilter';
  edtFilter.Text := '';
  edtFilter.Parent := Panel;
  edtFilter.Align := alClient;
  edtFilter.OnChange := FilterChanged;
  Title.FocusControl := edtFilter;
  Distance(Title, Scaled96(Space));
  Distance(edtFilter, Scaled96(Space));
end;

procedure TmlRunEditor.BuildGrid;
begin
  grdTexts := TStringGrid.Create(Self);
  grdTexts.Name := 'grdTexts';
  { One that is narrow at first keeps its scroll bar. }
  grdTexts.SetBounds(0, 0, ClientWidth, ClientHeight);
  grdTexts.Parent := NewPanel(Self, alClient);
  grdTexts.Align := alClient;
  Distance(grdTexts, Scaled96(Space));
  grdTexts.Options := grdTexts.Options + [goColSizing, goEditing, goThumbTracking] - [goRangeSelect];
  grdTexts.ColCount := BaseColumn + Length(FTexts.Languages);
  grdTexts.FixedCols := grdTexts.ColCount - 1;
  if grdTexts.FixedCols > BaseColumn + 1 then grdTexts.FixedCols := BaseColumn + 1;
  grdTexts.OnResize := GridResized;
  grdTexts.OnSelectCell := CellSelected;
  grdTexts.OnSetEditText := CellEdited;
  {$IFDEF FPC}
  grdTexts.OnPrepareCanvas := CellDrawn;
  grdTexts.OnSelectEditor := CellEditorChosen;
  {$ENDIF}
end;

function TmlRunEditor.NewMemo(Parent: TPanel; const Name: string; out Above: TLabel): TMemo;
begin
  Above := TLabel.Create(Self);
  Above.Parent := Parent;
  Above.Align := alTop;
  Above.ShowAccelChar := False;
  Result := TMemo.Create(Self);
  Result.Name := Name;
  Result.Text := '';
  Result.Parent := Parent;
  Result.Align := alClient;
  Result.ScrollBars := ssVertical;
  Above.FocusControl := Result;
  Distance(Above, Scaled96(Space));
  Distance(Result, Scaled96(Space));
end;

procedure TmlRunEditor.BuildMemos;
var
  Both: TPanel;
  Splitter: TSplitter;
begin
  Both := NewPanel(Self, alBottom);
  Both.Height := Scaled96(150);
  Both.OnResize := MemosResized;
  Splitter := TSplitter.Create(Self);
  Splitter.Parent := Self;
  Splitter.Align := alBottom;
  FLeft := NewPanel(Both, alLeft);
  memBase := NewMemo(FLeft, 'memBase', lblBase);
  memBase.ReadOnly := True;
  memBase.TabStop := False;
  memBase.Color := clBtnFace;
  memText := NewMemo(NewPanel(Both, alClient), 'memText', lblText);
  memText.OnChange := MemoChanged;
  lblBase.Caption := FTexts.Languages[0];
  Turn(memBase, 0);
end;

procedure TmlRunEditor.NewButton(Parent: TPanel; const Name, Caption: string; Handler: TNotifyEvent;
  Choice: TModalResult);
var
  Button: TButton;
begin
  Button := TButton.Create(Self);
  Button.Name := Name;
  Button.Caption := Caption;
  Button.Parent := Parent;
  Button.Constraints.MinWidth := Scaled96(80);
  {$IFDEF FPC}Button.AutoSize := True;{$ENDIF}
  Button.Align := alRight;
  Button.OnClick := Handler;
  Button.ModalResult := Choice;
  Button.Cancel := Choice = mrCancel;
  Distance(Button, Scaled96(Space));
end;

procedure TmlRunEditor.BuildButtons;
var
  Panel: TPanel;
begin
  Panel := NewPanel(Self, alBottom);
  Panel.AutoSize := True;
  Panel.Top := Height;
  NewButton(Panel, 'btnOK', SEditorOK, OKClicked, mrNone);
  NewButton(Panel, 'btnCancel', SEditorCancel, nil, mrCancel);
end;

{ What they show }

function TmlRunEditor.PlaceOf(Column: Integer): Integer;
begin
  Result := Column - BaseColumn;
end;

procedure TmlRunEditor.FillGrid;
var
  Column, Row: Integer;
begin
  {$IFDEF FPC}grdTexts.BeginUpdate;{$ENDIF}
  try
    grdTexts.RowCount := FRows.Count + 1;
    grdTexts.Cells[KeyColumn, 0] := SEditorKey;
    for Column := BaseColumn to grdTexts.ColCount - 1 do
      grdTexts.Cells[Column, 0] := FTexts.Languages[PlaceOf(Column)];
    for Row := 1 to FRows.Count do
    begin
      grdTexts.Cells[KeyColumn, Row] := FRows.Key(Row - 1);
      for Column := BaseColumn to grdTexts.ColCount - 1 do
        grdTexts.Cells[Column, Row] := WithBreaks(FRows.Texts[Row - 1, PlaceOf(Column)], BreakSign);
    end;
  finally
    {$IFDEF FPC}grdTexts.EndUpdate;{$ENDIF}
  end;
end;

{ The columns share the width until the person gives them others. }
procedure TmlRunEditor.GridResized(Sender: TObject);
var
  Column, Share: Integer;
begin
  if grdTexts.Width = FGridWidth then Exit;
  FGridWidth := grdTexts.Width;
  Share := (FGridWidth - GetSystemMetrics(SM_CXVSCROLL) - Scaled96(2 * Space)) div grdTexts.ColCount;
  if Share < Scaled96(LeastColumn) then Share := Scaled96(LeastColumn);
  for Column := 0 to grdTexts.ColCount - 1 do
    grdTexts.ColWidths[Column] := Share;
end;

procedure TmlRunEditor.MemosResized(Sender: TObject);
begin
  FLeft.Width := FLeft.Parent.ClientWidth div 2;
end;

procedure TmlRunEditor.Turn(Memo: TMemo; Place: Integer);
begin
  if FRows.IsRightToLeft(Place) then Memo.BiDiMode := bdRightToLeft else Memo.BiDiMode := bdLeftToRight;
end;

procedure TmlRunEditor.ShowCell(Column, Row: Integer);
var
  IsText: Boolean;
begin
  IsText := (Row > 0) and (Row <= FRows.Count) and (PlaceOf(Column) > 0);
  FFilling := True;
  try
    memText.ReadOnly := not IsText;
    memText.Text := '';
    memBase.Text := '';
    lblText.Caption := '';
    if (Row > 0) and (Row <= FRows.Count) then memBase.Text := FRows.Texts[Row - 1, 0];
    if not IsText then Exit;
    lblText.Caption := FTexts.Languages[PlaceOf(Column)];
    Turn(memText, PlaceOf(Column));
    memText.Text := FRows.Texts[Row - 1, PlaceOf(Column)];
  finally
    FFilling := False;
  end;
end;

{ What the person does }

procedure TmlRunEditor.CellSelected(Sender: TObject; Column, Row: Integer; var CanSelect: Boolean);
begin
  ShowCell(Column, Row);
end;

{ The sign of a break is no text: such texts are edited below. }
procedure TmlRunEditor.CellEdited(Sender: TObject; Column, Row: Integer; const Value: string);
begin
  if (Row < 1) or (Row > FRows.Count) or (PlaceOf(Column) < 1) then Exit;
  if HasBreak(FRows.Texts[Row - 1, PlaceOf(Column)]) then Exit;
  FRows.Texts[Row - 1, PlaceOf(Column)] := Value;
  ShowCell(Column, Row);
end;

{$IFDEF FPC}
procedure TmlRunEditor.CellDrawn(Sender: TObject; Column, Row: Integer; State: TGridDrawState);
var
  Style: TTextStyle;
begin
  if (PlaceOf(Column) < 0) or not FRows.IsRightToLeft(PlaceOf(Column)) then Exit;
  Style := grdTexts.Canvas.TextStyle;
  Style.Alignment := taRightJustify;
  Style.RightToLeft := True;
  grdTexts.Canvas.TextStyle := Style;
end;

procedure TmlRunEditor.CellEditorChosen(Sender: TObject; Column, Row: Integer; var Editor: TWinControl);
begin
  if (Row < 1) or (Row > FRows.Count) or (PlaceOf(Column) < 1) or HasBreak(FRows.Texts[Row - 1, PlaceOf(Column)]) then
    Editor := nil
  else if FRows.IsRightToLeft(PlaceOf(Column)) then
    Editor.BiDiMode := bdRightToLeft
  else
    Editor.BiDiMode := bdLeftToRight;
end;
{$ENDIF}

procedure TmlRunEditor.FilterChanged(Sender: TObject);
begin
  FRows.Filter(edtFilter.Text);
  FillGrid;
  if (FRows.Count > 0) and (grdTexts.Row < 1) then grdTexts.Row := 1;
  ShowCell(grdTexts.Col, grdTexts.Row);
end;

{ Line breaks become those of the base text. }
procedure TmlRunEditor.MemoChanged(Sender: TObject);
var
  Row, Place: Integer;
  Former, Ending: string;
begin
  if FFilling or memText.ReadOnly then Exit;
  Row := grdTexts.Row - 1;
  Place := PlaceOf(grdTexts.Col);
  Former := FRows.Texts[Row, Place];
  if WithBreaks(memText.Text, #10) = WithBreaks(Former, #10) then Exit;
  Ending := #10;
  if Pos(#13#10, FRows.Texts[Row, 0]) > 0 then Ending := #13#10;
  FRows.Texts[Row, Place] := WithBreaks(memText.Text, Ending);
  grdTexts.Cells[grdTexts.Col, grdTexts.Row] := WithBreaks(memText.Text, BreakSign);
end;

procedure TmlRunEditor.OKClicked(Sender: TObject);
begin
  try
    if FRows.IsChanged then FTake(FTexts);
    ModalResult := mrOk;
  except
    on E: EmlTranslationFile do Application.MessageBox(PChar(E.Message), PChar(Caption), MB_OK or MB_ICONERROR);
  end;
end;

procedure TmlRunEditor.MayClose(Sender: TObject; var CanClose: Boolean);
begin
  CanClose := (ModalResult = mrOk) or not FRows.IsChanged or
    (Application.MessageBox(PChar(SEditorGiveUp), PChar(Caption), MB_YESNO or MB_ICONQUESTION) = IDYES);
end;

function EditTexts(Texts: TmlLangTexts; const FormName: string; Place: Integer; Take: TmlTakeTexts): Boolean;
var
  Editor: TmlRunEditor;
begin
  Editor := TmlRunEditor.CreateFor(Texts, FormName, Place, Take);
  try
    Result := (Editor.ShowModal = mrOk) and Editor.Rows.IsChanged;
  finally
    Editor.Free;
  end;
end;

end.

{ High and low water of the day. }
unit Tidetable;

{$mode objfpc}{$H+}

interface

uses
  Classes, SysUtils, Forms, Grids, StdCtrls, Mllang;

type
  TTidesForm = class(TForm)
    lblPort: TLabel;
    grdTides: TStringGrid;
    mlLang_TidesForm: TmlLang;
    procedure FormCreate(Sender: TObject);
    procedure LanguageChanged(Sender: TObject);
  private
    procedure Fill;
  end;

implementation

{$R *.lfm}

procedure TTidesForm.FormCreate(Sender: TObject);
begin
  Fill;
end;

procedure TTidesForm.LanguageChanged(Sender: TObject);
begin
  Fill;
end;

procedure TTidesForm.Fill;
const
  Times: array[0..3] of string = ({TML:IGNORE}'03:12', '09:25', '15:40', '21:51');
  Heights: array[0..3] of Double = (0.6, 4.1, 0.8, 3.9);
var
  I: Integer;
begin
  grdTides.RowCount := 5;
  for I := 0 to 3 do
  begin
    grdTides.Cells[0, I + 1] := Times[I];
    if Odd(I) then
      grdTides.Cells[1, I + 1] := mlLang_TidesForm.GetTextOrDefault('IDS_0' (* 'High water' *) )
    else
      grdTides.Cells[1, I + 1] := mlLang_TidesForm.GetTextOrDefault('IDS_1' (* 'Low water' *) );
    grdTides.Cells[2, I + 1] := Format(mlLang_TidesForm.GetTextOrDefault('IDS_2' (* '%.1f m' *) ), [Heights[I]]);
  end;
end;

end.

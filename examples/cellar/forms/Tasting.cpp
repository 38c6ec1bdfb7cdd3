#include <vcl.h>
#pragma hdrstop

#include "Tasting.h"
//---------------------------------------------------------------------------
#pragma package(smart_init)
#pragma resource "*.dfm"

TTastingForm *TastingForm;
//---------------------------------------------------------------------------
__fastcall TTastingForm::TTastingForm(TComponent *Owner) : TForm(Owner)
{
}
//---------------------------------------------------------------------------
void __fastcall TTastingForm::FormCreate(TObject *)
{
    // The words of the trade: "süß" is more than 45 g/l, "trocken" less than 9 g/l.
    SweetnessBox->Items->Add("dry (trocken)");
    SweetnessBox->Items->Add("medium dry (halbtrocken)");
    SweetnessBox->Items->Add("sweet (süß)");
    NotesMemo->Lines->Text = "Colour:\r\nNose:\r\nPalate:\r\n";
    NotesMemo->Hint = "Serve reds at 16 °C, a Château above 20 € at 18 °C.";
}
//---------------------------------------------------------------------------
void __fastcall TTastingForm::FormShow(TObject *)
{
    WineLabel->Caption = "Tasting of \"" + FWine + "\"";
    if (FWine == L"Grüner Veltliner")
        NotesMemo->Lines->Add("Pepper?\tCitrus?");
}
//---------------------------------------------------------------------------
String __fastcall TTastingForm::Problem() const
{
    if (SweetnessBox->ItemIndex < 0)
        return "Say how sweet the wine is.";
    if (NotesMemo->Lines->Count > 40)
        return "The notes don't fit on the label: "
               "40 lines are the limit.";
    return "";
}
//---------------------------------------------------------------------------
void __fastcall TTastingForm::OkButtonClick(TObject *)
{
    const String problem = Problem();
    if (problem.IsEmpty())
        ModalResult = mrOk;
    else
        MessageDlg(problem, mtWarning, TMsgDlgButtons() << mbOK, 0);
}

#include <vcl.h>
#pragma hdrstop

#include <tchar.h>
#include "Main.h"
#include "Tasting.h"
#include "Cellardata.h"
#include "Vintages.h"
//---------------------------------------------------------------------------
#pragma package(smart_init)
#pragma resource "*.dfm"

#define APP_NAME "Cellar"
#define LITRES(value) (FormatFloat("0.0", value) + " l")

TMainForm *MainForm;

static const char *const kHeadings[] = {"Barrel", "Wine", "State", "Litres"};
//---------------------------------------------------------------------------
static void Log(const char *line)
{
    OutputDebugStringA(line);
    OutputDebugStringA("\r\n");
}

static String Greeting(int hour)
{
    return hour < 12 ? "Good morning" : "Good afternoon";
}
//---------------------------------------------------------------------------
__fastcall TMainForm::TMainForm(TComponent *Owner) : TForm(Owner), FUnsaved(0)
{
}
//---------------------------------------------------------------------------
void __fastcall TMainForm::FormCreate(TObject *)
{
    Caption = APP_NAME " - the barrels of the house";
    for (int i = 0; i < BarrelList->Columns->Count; ++i)
        BarrelList->Columns->Items[i]->Caption = kHeadings[i];
    AddBarrel("Pinot noir", bsAgeing, 225);
    AddBarrel("Chardonnay", bsReady, 110.5);
    AddBarrel(L"Grüner Veltliner", bsFermenting, 300);
    StatusBar->SimpleText = Greeting(12) + "!";
    TasteButton->Hint = "Opens the tasting notes.\nThe barrel stays locked meanwhile.";
    Log("main form created"); /*TML:IGNORE*/
}
//---------------------------------------------------------------------------
void __fastcall TMainForm::FormCloseQuery(TObject *, bool &CanClose)
{
    // The "Save?" question comes only when something is unsaved; it doesn't come twice.
    if (FUnsaved == 0)
        return;
    const int answer = Application->MessageBox(
        _T("There are tasting notes that are not saved.\r\nClose all the same?"),
        _T("Cellar"), MB_YESNO | MB_ICONQUESTION);
    CanClose = answer == IDYES;
}
//---------------------------------------------------------------------------
void __fastcall TMainForm::AddBarrel(const String &Wine, TBarrelState State, double Litres)
{
    TListItem *item = BarrelList->Items->Add();
    item->Caption = "No. " + IntToStr(BarrelList->Items->Count);
    item->SubItems->Add(Wine);
    item->SubItems->Add(StateText(State));
    item->SubItems->Add(LITRES(Litres));
}
//---------------------------------------------------------------------------
String __fastcall TMainForm::StateText(TBarrelState State) const
{
    switch (State)
    {
        case bsFermenting:
            return L"fermenting";
        case bsAgeing:
            return L"ageing";
        case bsReady:
            return L"ready to bottle";
        default:
            return L"empty"; /* the list shows a "-" in older versions */
    }
}
//---------------------------------------------------------------------------
void __fastcall TMainForm::Report(const String &Text, const String &Title)
{
    MessageDlg(Title + ": " + Text, mtInformation, TMsgDlgButtons() << mbOK, 0);
}
//---------------------------------------------------------------------------
void __fastcall TMainForm::TasteButtonClick(TObject *)
{
    TListItem *item = BarrelList->Selected;
    if (item == NULL)
    {
        Report("Choose a barrel first.");
        return;
    }
    TTastingForm *form = new TTastingForm(this);
    try
    {
        form->Wine = item->SubItems->Strings[0];
        if (form->ShowModal() == mrOk)
            ++FUnsaved;
    }
    __finally
    {
        delete form;
    }
}
//---------------------------------------------------------------------------
void __fastcall TMainForm::RackButtonClick(TObject *)
{
    if (BarrelList->Selected == NULL)
        return;
    String text = "The wine is drawn off its lees into a clean barrel. "
                  "Note the litres on both sides; "
                  "a loss of more than 3% must be explained.";
    String folder = CellarData->Folder();
    if (folder[folder.Length()] != '\\' && folder[1] != '"')
        folder += '\\';
    text += "\n\nThe sheet is kept in \"" + folder + "\".";
    Report(text, "Racking");
}
//---------------------------------------------------------------------------
void __fastcall TMainForm::ExportItemClick(TObject *)
{
    SaveDialog->Filter = "Web pages|*.html|All files|*.*";
    if (!SaveDialog->Execute())
        return;
    const String page = R"html(<html>
<head><title>Cellar "book"</title></head>
<body><h1>Barrels</h1>
)html";
    TStringList *lines = new TStringList;
    try
    {
        lines->Text = page;
        for (int i = 0; i < BarrelList->Items->Count; ++i)
            lines->Add("<p>" + BarrelList->Items->Item[i]->Caption + "</p>");
        lines->Add("</body></html>");
        lines->SaveToFile(SaveDialog->FileName);
    }
    __finally
    {
        delete lines;
    }
    StatusBar->SimpleText = u8"Exported";
}
//---------------------------------------------------------------------------
void __fastcall TMainForm::ExitItemClick(TObject *)
{
    Close();
}

#ifndef MainH
#define MainH
//---------------------------------------------------------------------------
#include <Classes.hpp>
#include <Controls.hpp>
#include <StdCtrls.hpp>
#include <Forms.hpp>
#include <ComCtrls.hpp>
#include <ExtCtrls.hpp>
#include <Menus.hpp>
//---------------------------------------------------------------------------
enum TBarrelState { bsEmpty, bsFermenting, bsAgeing, bsReady };

class TMainForm : public TForm
{
__published:
    TMainMenu *MainMenu;
    TMenuItem *CellarMenu;
    TMenuItem *TasteItem;
    TMenuItem *ExportItem;
    TMenuItem *N1;
    TMenuItem *ExitItem;
    TPanel *ButtonPanel;
    TButton *TasteButton;
    TButton *RackButton;
    TListView *BarrelList;
    TStatusBar *StatusBar;
    TSaveDialog *SaveDialog;
    void __fastcall FormCreate(TObject *Sender);
    void __fastcall FormCloseQuery(TObject *Sender, bool &CanClose);
    void __fastcall TasteButtonClick(TObject *Sender);
    void __fastcall RackButtonClick(TObject *Sender);
    void __fastcall ExportItemClick(TObject *Sender);
    void __fastcall ExitItemClick(TObject *Sender);
private:
    int FUnsaved;
    void __fastcall AddBarrel(const String &Wine, TBarrelState State, double Litres);
    String __fastcall StateText(TBarrelState State) const;
public:
    __fastcall TMainForm(TComponent *Owner);
    void __fastcall Report(const String &Text, const String &Title = "Cellar");
};
//---------------------------------------------------------------------------
extern PACKAGE TMainForm *MainForm;
//---------------------------------------------------------------------------
#endif

#ifndef TastingH
#define TastingH
//---------------------------------------------------------------------------
#include <Classes.hpp>
#include <Controls.hpp>
#include <StdCtrls.hpp>
#include <Forms.hpp>
//---------------------------------------------------------------------------
class TTastingForm : public TForm
{
__published:
    TLabel *WineLabel;
    TLabel *SweetnessLabel;
    TComboBox *SweetnessBox;
    TMemo *NotesMemo;
    TButton *OkButton;
    TButton *CancelButton;
    void __fastcall FormCreate(TObject *Sender);
    void __fastcall FormShow(TObject *Sender);
    void __fastcall OkButtonClick(TObject *Sender);
private:
    String FWine;
    String __fastcall Problem() const;
public:
    __fastcall TTastingForm(TComponent *Owner);
    __property String Wine = {read = FWine, write = FWine};
};
//---------------------------------------------------------------------------
extern PACKAGE TTastingForm *TastingForm;
//---------------------------------------------------------------------------
#endif

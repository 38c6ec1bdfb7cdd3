#ifndef CellardataH
#define CellardataH
//---------------------------------------------------------------------------
#include <Classes.hpp>
#include <Forms.hpp>
//---------------------------------------------------------------------------
class TCellarData : public TDataModule
{
__published:
    void __fastcall DataModuleCreate(TObject *Sender);
private:
    String FFolder;
public:
    __fastcall TCellarData(TComponent *Owner);
    String __fastcall Folder() const { return FFolder; }
    String __fastcall LoadError(const String &FileName, int Line) const;
};
//---------------------------------------------------------------------------
extern PACKAGE TCellarData *CellarData;
//---------------------------------------------------------------------------
#endif

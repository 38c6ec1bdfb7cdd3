#include <vcl.h>
#pragma hdrstop

#include "Cellardata.h"
//---------------------------------------------------------------------------
#pragma package(smart_init)
#pragma resource "*.dfm"

TCellarData *CellarData;
//---------------------------------------------------------------------------
__fastcall TCellarData::TCellarData(TComponent *Owner) : TDataModule(Owner)
{
}
//---------------------------------------------------------------------------
void __fastcall TCellarData::DataModuleCreate(TObject *)
{
    /*TML:IGNORE ON*/
    FFolder = ExtractFilePath(ParamStr(0)) + "data\\";
    if (!DirectoryExists(FFolder))
        ForceDirectories(FFolder + "sheets");
    /*TML:IGNORE OFF*/
}
//---------------------------------------------------------------------------
String __fastcall TCellarData::LoadError(const String &FileName, int Line) const
{
    return Format("Line %d of %s cannot be read.", ARRAYOFCONST((Line, FileName)));
}

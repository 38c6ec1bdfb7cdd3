#include <vcl.h>
#pragma hdrstop
#include <tchar.h>
//---------------------------------------------------------------------------
USEFORM("forms\Main.cpp", MainForm);
USEFORM("forms\Tasting.cpp", TastingForm);
USEFORM("units\Cellardata.cpp", CellarData); /* TDataModule: File Type */
USEUNIT("units\Vintages.cpp");
USEUNIT("units\Bottleprice.pas");
USERES("Cellar.res");
//---------------------------------------------------------------------------
int WINAPI _tWinMain(HINSTANCE, HINSTANCE, LPTSTR, int)
{
    try
    {
        Application->Initialize();
        Application->Title = "Cellar";
        Application->CreateForm(__classid(TCellarData), &CellarData);
        Application->CreateForm(__classid(TMainForm), &MainForm);
        Application->Run();
    }
    catch (Exception &error)
    {
        Application->ShowException(&error);
    }
    return 0;
}

#include <vcl.h>
#pragma hdrstop

#include "Vintages.h"
//---------------------------------------------------------------------------
#pragma package(smart_init)

namespace
{
struct TVintage
{
    int Year;
    const wchar_t *Text;
};

const TVintage kVintages[] = {
    {2015, L"A hot summer; rich and ripe"},
    {2016, L"Cool nights, fine acidity"},
    {2017, L"Frost in April: few bottles, good ones"},
};
}
//---------------------------------------------------------------------------
String VintageText(int year)
{
    if (year < 1990)
        return "";
    for (const TVintage &vintage : kVintages)
        if (vintage.Year == year)
            return vintage.Text;
    return "No entry in the almanac";
}
//---------------------------------------------------------------------------
extern "C" const char *CellarLibraryVersion()
{
    return "1.4";
}

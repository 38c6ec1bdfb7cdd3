#ifndef VintagesH
#define VintagesH
//---------------------------------------------------------------------------
#include <System.hpp>

/// What the almanac says of a year; "" for a year before 1990.
String VintageText(int year);

extern "C" const char *CellarLibraryVersion();
//---------------------------------------------------------------------------
#endif

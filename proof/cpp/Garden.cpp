#include "Garden.h"

#include <cstring>

#include "Vcl.h"

#pragma message("compiled for the garden")
#define VERSION_TEXT "1.0"
static const char* kMonths[] = {"January", "February"};
const char kTool[] = "watering can";
extern "C" void Sprinkle();
static_assert(sizeof(int) >= 2, "int is too small");
TGardenForm* GardenForm = nullptr;

namespace garden {
String Helper() {
    return "outside the form";
}
}  // namespace garden

void __fastcall TGardenForm::FormCreate(TObject* Sender) {
    Caption = "Vegetable garden";
    ShowMessage("A quoted \"word\", a tab\t and a line\n");
    ShowMessage(
        "two pieces "
        "on one line");
    ShowMessage(
        "first line "
        "second line");
    ShowMessage(R"(raw "text" here)");
    ShowMessage(L"wide text");
    ShowMessage(_T("mapped text"));
    ShowMessage("version " VERSION_TEXT);
    const char letter = '"';
    String array[] = {"one element", "another element"};
    // "only a comment"
    if (letter == '"') ShowMessage(String("piece ") + "by piece"); /* "and another" */
}

String TGardenForm::Describe(int beds, const String& suffix) {
    switch (beds) {
        case 'x':
            return "an odd garden";
        default:
            return beds > 3 ? String("many ") + suffix : String("few ") + suffix;
    }
}

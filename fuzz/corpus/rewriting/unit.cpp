#include "Main.h"
#define NAME "macro" /* "comment" */
extern "C" void F(char c = '"');
void __fastcall TMainForm::FormCreate(TObject *Sender)
{
  Caption = L"wide" + _T("text") "joined" "two";
  Say("it's \"quoted\" \x41\u0416\n", '\'', u8"x");
  Raw(R"x(raw "text" )" )x");
  // "line" \
     "still a comment"
  mlLang1->GetTextOrDefault("IDS_5" /* "it's" */ );
  /*TML:IGNORE NEXT*/
  Say("ignored");
  Say("trailing" NAME "macro", 1'000);
}

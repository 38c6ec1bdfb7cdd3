#ifndef GardenH
#define GardenH
#include "Vcl.h"

class TGardenForm : public TForm {
    __published : TmlLang* mlLang1;
    void __fastcall FormCreate(TObject* Sender);

  public:
    String Describe(int beds, const String& suffix = "beds");
};
extern TGardenForm* GardenForm;
#endif

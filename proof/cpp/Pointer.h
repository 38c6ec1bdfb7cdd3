#ifndef PointerH
#define PointerH
#include "Vcl.h"

class TPointerForm : public TForm {
    __published : TmlLang* mlLang1;

  public:
    const char* Raw();
};
extern TPointerForm* PointerForm;
#endif

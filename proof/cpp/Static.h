#ifndef StaticH
#define StaticH
#include "Vcl.h"

class TStaticForm : public TForm {
    __published : TmlLang* mlLang1;

  public:
    static String Season(int month);
};
extern TStaticForm* StaticForm;
#endif

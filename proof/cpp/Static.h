#ifndef StaticH
#define StaticH
#include "Vcl.h"

class TStaticForm : public TForm {
    __published : TmlLang* mlLang1;

  public:
    static String Season(int month);
    String Weather();
};
extern TStaticForm* StaticForm;
#endif

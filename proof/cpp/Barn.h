#ifndef BarnH
#define BarnH
#include "Vcl.h"

template <class T>
class TShelf {
  public:
    const char* Name() const { return "a shelf in a header"; }
};

class TBarnForm : public TForm {
    __published : TmlLang* mlLang1;
    void __fastcall FormCreate(TObject* Sender);

  public:
    String State() const;
    String Animals(int count);
};
extern TBarnForm* BarnForm;
#endif

#include "Pointer.h"

TPointerForm* PointerForm = nullptr;

const char* TPointerForm::Raw() {
    return "a pointer is returned";
}

#include "Static.h"

TStaticForm* StaticForm = nullptr;

String TStaticForm::Season(int month) {
    return month < 6 ? String("spring") : String("autumn");
}

String TStaticForm::Weather() {
    return "rain";
}

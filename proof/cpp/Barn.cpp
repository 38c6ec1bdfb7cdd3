#include "Barn.h"

#include <functional>
#include <stdexcept>

#define CHECK(condition)                                                 \
    do {                                                                 \
        if (!(condition)) throw std::logic_error("failed: " #condition); \
    } while (0)

TBarnForm* BarnForm = nullptr;
static String defaultName = "the old barn";

void __fastcall TBarnForm::FormCreate(TObject* Sender) {
    const std::function<String(int)> tell = [this](int count) -> String {
        return count == 1 ? String("one animal") : String("several animals");
    };
    Caption = tell(2) + " in the barn";
    CHECK(Caption == "never");
    TShelf<int> shelf;
    ShowMessage(shelf.Name());
    struct TLocal {
        String Text() { return "a local class"; }
    } local;
    ShowMessage(local.Text());
#if 0
    ShowMessage("not compiled, don't care");
#endif
    ShowMessage(
        "a backslash \
continues this");
}

String TBarnForm::State() const {
    return "doors are shut";
}

String TBarnForm::Animals(int count) {
    String text = count > 9 ? "a herd" : "some";
    for (int i = 0; i < count; ++i)
        text = text + ", one more";
    return text;
}

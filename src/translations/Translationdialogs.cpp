#include "translations/Translationdialogs.h"

namespace tml {
namespace {

template <typename TDialog>
TDialog Dialog(const char* name) {
    TDialog dialog;
    dialog.Name = name;
    dialog.Caption = "Select file...";
    dialog.DefaultExt = "mll";
    dialog.Filter = kBothTranslations;
    return dialog;
}

}  // namespace

TSaveDialog SaveDialog() {
    auto dialog = Dialog<TSaveDialog>("SaveDialog");
    dialog.OverwritePrompt = true;
    return dialog;
}

TOpenDialog OpenDialog() {
    auto dialog = Dialog<TOpenDialog>("OpenDialog");
    dialog.FileMustExist = true;
    return dialog;
}

}  // namespace tml

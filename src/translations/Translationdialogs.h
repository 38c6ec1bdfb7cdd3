#pragma once

#include "windows/Filedialogs.h"

namespace tml {

inline constexpr const char* kTextTranslations = "TmlLang text files (*.mll)|*.mll";
inline constexpr const char* kBothTranslations =
    "TmlLang text files (*.mll)|*.mll|TmlLang binary files (*.mlb)|*.mlb";

/// The dialogs by which translation files of both kinds are chosen.
TSaveDialog SaveDialog();
TOpenDialog OpenDialog();

}  // namespace tml

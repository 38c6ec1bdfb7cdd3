#pragma once

#include <string>
#include <string_view>

namespace tml {

/// The BCP 47 tag ("de", "pt-BR", "zh-Hans") of a language that is named in English ("German", "Portuguese
/// (Brazil)", "Brazilian Portuguese"), in itself ("Deutsch") or by its tag, without regard to case; "" for
/// any other name.
std::string LanguageTagOf(std::string_view name);

/// True for a tag of a language that is written from right to left; "_" may stand for "-".
bool IsRightToLeft(std::string_view tag);

}  // namespace tml

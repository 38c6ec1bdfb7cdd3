#include "source/Language.h"

#include <algorithm>
#include <array>

#include "base/Files.h"
#include "base/Utf8.h"

namespace tml {

const TLanguage& LanguageOf(std::string_view fileName) {
    static constexpr std::array<std::string_view, 3> kCppExtensions = {".cpp", ".h", ".c"};
    const std::string extension = ExtensionOf(fileName);
    const bool isCpp = std::any_of(kCppExtensions.begin(), kCppExtensions.end(),
                                   [&](std::string_view known) { return SameText(known, extension); });
    return isCpp ? kCpp : kPascal;
}

}  // namespace tml

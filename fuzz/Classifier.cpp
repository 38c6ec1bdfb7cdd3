// The common library through its entry points: comments are those that the source reader finds, and a
// pattern that quotes a text matches it.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "Expect.h"
#include "base/Utf8.h"
#include "host/Commonlibrary.h"
#include "source/Sourcetext.h"

namespace tml::fuzz {
namespace {

ICommonLibrary& Common() {
    static const auto loader = MakeCommonLibraryLoader(TML_COMMON_LIBRARY);
    ICommonLibrary* common = loader->Load();
    Expect(common != nullptr && common->HasClassifier() && common->HasMatcher(), "the library can be loaded");
    return *common;
}

void CheckComments(const std::string& text) {
    Common().InitInternalPasSource(text);
    for (const TLanguage* language : {&kPascal, &kCpp}) {
        const TSourceText source(std::string_view(text), *language);
        for (std::size_t i = 0; i < text.size(); ++i)
            Expect(Common().IsCommentAt(0, static_cast<int>(i + 1), language->IsCPPSource) ==
                       source.IsCommentAt(i),
                   "the classifier agrees with the source reader");
    }
    for (const int outside : {-1, 0, static_cast<int>(text.size()) + 2})
        Common().IsCommentAt(0, outside, false);
}

/// The first line is a pattern, the rest a text.
void CheckPatterns(const std::string& input) {
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string text = input.substr(std::min(end + 1, input.size()));
    Common().mlREStringMatches(text, input.substr(0, end));
    const bool quotable = IsValidUtf8(text) && !Contains(text, "\\E");
    if (quotable)
        Expect(Common().mlREStringMatches(text, "\\Q" + text + "\\E"), "a quoted text matches itself");
}

}  // namespace
}  // namespace tml::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The entry points take texts that end with a zero byte.
    const std::string text = std::string(reinterpret_cast<const char*>(data), size).c_str();
    tml::fuzz::CheckComments(text);
    tml::fuzz::CheckPatterns(text);
    return 0;
}

// The three entry points of the common library. They are called by name from outside, so their texts
// end with a zero byte, no exception leaves them, and what they remember belongs to the calling thread.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "common/Patterns.h"
#include "source/Sourcetext.h"

#ifdef _WIN32
#define TML_ENTRY extern "C" __declspec(dllexport)
#else
#define TML_ENTRY extern "C" __attribute__((visibility("default")))
#endif

namespace {

/// The text handed over last; it is read when the first position is asked for, as only then is its
/// language known.
struct TClassified {
    std::string Text;
    std::optional<tml::TSourceText> Source;
    bool IsCpp = false;

    const tml::TSourceText& In(bool isCpp) {
        if (!Source || IsCpp != isCpp) {
            Source.emplace(std::string_view(Text), isCpp ? tml::kCpp : tml::kPascal);
            IsCpp = isCpp;
        }
        return *Source;
    }
};

TClassified& Classified() {
    thread_local TClassified classified;
    return classified;
}

tml::TPatterns& Patterns() {
    thread_local tml::TPatterns patterns;
    return patterns;
}

}  // namespace

/// A scan begins: takes a copy of the text (UTF-8) whose positions are asked for from now on. The same text
/// again is not read again.
TML_ENTRY void InitInternalPasSource(const char* text) noexcept {
    try {
        Patterns().BeginScan();
        TClassified& classified = Classified();
        const std::string_view given = text == nullptr ? "" : text;
        if (classified.Text == given) return;
        classified.Source.reset();
        classified.Text = given;
    } catch (...) {
        // Out of memory: the positions stay those of the text before.
    }
}

/// Not 0 when the 1-based byte offset lies in a comment. The line is not needed: the offset is that of
/// the whole text.
TML_ENTRY unsigned char IsCommentAt(int /*line*/, int offset, bool isCpp) noexcept {
    try {
        if (offset < 1) return 0;
        return Classified().In(isCpp).IsCommentAt(static_cast<std::size_t>(offset) - 1) ? 1 : 0;
    } catch (...) {
        return 0;
    }
}

/// Not 0 when the pattern matches the whole text.
TML_ENTRY unsigned char mlREStringMatches(const char* text, const char* pattern) noexcept {
    try {
        return text != nullptr && pattern != nullptr && Patterns().Matches(text, pattern) ? 1 : 0;
    } catch (...) {
        return 0;
    }
}

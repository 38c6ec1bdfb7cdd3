#include "base/Asciitext.h"

#include <memory>
#include <unicode/translit.h>

#include "base/Utf8.h"

namespace tml {

std::string AsciiOf(std::string_view text) {
    if (FindNonAscii(text, 0) == text.size()) return std::string(text);
    // Making one takes long; it has no state between texts.
    thread_local UErrorCode status = U_ZERO_ERROR;
    thread_local const std::unique_ptr<icu::Transliterator> toAscii(icu::Transliterator::createInstance(
        "Any-Latin; Latin-ASCII; [^\\u0000-\\u007F] Remove", UTRANS_FORWARD, status));
    std::string ascii;
    icu::UnicodeString changed =
        icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
    if (toAscii != nullptr) toAscii->transliterate(changed);
    changed.toUTF8String(ascii);
    return ascii;
}

}  // namespace tml

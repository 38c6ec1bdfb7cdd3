#pragma once

#include <bit>
#include <cstddef>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace tml {

/// Classes of bytes in source text. Bytes of UTF-8 sequences count as letters, as both languages' newer
/// compilers take them.
inline constexpr bool IsBlank(char c) {
    return static_cast<unsigned char>(c) <= ' ';
}
inline constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
inline constexpr bool IsLineEnd(char c) {
    return c == '\n' || c == '\r';
}
inline constexpr bool IsHexDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
inline constexpr bool IsNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}
inline constexpr bool IsNameChar(char c) {
    return IsNameStart(c) || IsDigit(c);
}

/// A set of bytes that texts are searched for.
template <char... kBytes>
struct TByteSet {
    static constexpr bool Has(char c) { return ((c == kBytes) || ...); }
#ifdef __SSE2__
    /// The same for 16 bytes: bit i tells of bytes[i].
    static unsigned HasEach(const char* bytes) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
        __m128i hits = _mm_setzero_si128();
        ((hits = _mm_or_si128(hits, _mm_cmpeq_epi8(block, _mm_set1_epi8(kBytes)))), ...);
        return static_cast<unsigned>(_mm_movemask_epi8(hits));
    }
#endif
};

/// The first place at or behind pos with a byte of the set, the text's size when there is none.
template <typename TSet>
std::size_t FindByte(std::string_view text, std::size_t pos) {
#ifdef __SSE2__
    for (constexpr std::size_t kStep = 16; pos + kStep <= text.size(); pos += kStep)
        if (const unsigned hits = TSet::HasEach(text.data() + pos); hits != 0)
            return pos + static_cast<std::size_t>(std::countr_zero(hits));
#endif
    while (pos < text.size() && !TSet::Has(text[pos]))
        ++pos;
    return pos;
}

/// The start of the word (name characters) that ends at end.
inline std::size_t WordBegin(std::string_view text, std::size_t end) {
    while (end > 0 && IsNameChar(text[end - 1]))
        --end;
    return end;
}

/// Places behind and in front of blanks, line ends among them.
inline std::size_t SkipBlanks(std::string_view text, std::size_t pos) {
    while (pos < text.size() && IsBlank(text[pos]))
        ++pos;
    return pos;
}
inline std::size_t SkipBlanksBack(std::string_view text, std::size_t pos) {
    while (pos > 0 && IsBlank(text[pos - 1]))
        --pos;
    return pos;
}

/// The end of the line that holds pos, its line break excluded.
inline std::size_t LineEnd(std::string_view text, std::size_t pos) {
    const std::size_t end = text.find('\n', pos);
    if (end == std::string_view::npos) return text.size();
    return end > pos && text[end - 1] == '\r' ? end - 1 : end;
}

/// The start of the line that holds pos.
inline std::size_t LineStart(std::string_view text, std::size_t pos) {
    const std::size_t end = pos == 0 ? std::string_view::npos : text.rfind('\n', pos - 1);
    return end == std::string_view::npos ? 0 : end + 1;
}

}  // namespace tml

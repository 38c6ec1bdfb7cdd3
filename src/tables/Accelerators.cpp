#include "tables/Accelerators.h"

#include <algorithm>

#include "base/Utf8.h"
#include "tables/Textshapes.h"

namespace tml {
namespace {

constexpr auto kNone = std::string_view::npos;
/// From here on scripts are written with thousands of signs, which no key gives by itself.
constexpr char32_t kFirstIdeographic = 0x2E80;

/// The first mark at or behind pos.
std::size_t FindMark(std::string_view text, std::size_t pos = 0) {
    while ((pos = text.find('&', pos)) < text.size()) {
        const char next = pos + 1 < text.size() ? text[pos + 1] : ' ';
        if (next != '&' && static_cast<unsigned char>(next) > ' ') return pos;
        pos += next == '&' ? 2 : 1;
    }
    return kNone;
}

/// The letter behind a mark, folded.
std::string LetterAt(std::string_view text, std::size_t pos) {
    std::size_t end = pos;
    DecodeCodePoint(text, end);
    return FoldCase(text.substr(pos, end - pos));
}

bool CanBeAccelerator(std::string_view text, std::size_t pos, std::size_t end) {
    std::size_t next = pos;
    const std::string_view one = text.substr(pos, end - pos);
    return DecodeCodePoint(text, next) < kFirstIdeographic && (HasLetter(one) || IsNumber(one));
}

/// Where the mark goes: the letter at the start of a word, else inside one, else the first letter of a word.
/// Words with placeholders and the like are passed over.
std::size_t PlaceFor(std::string_view translation, const std::string& letter) {
    std::size_t inside = kNone;
    std::size_t first = kNone;
    for (std::size_t begin = 0; begin < translation.size();) {
        const std::size_t end = std::min(translation.find_first_of(" \r\n\t", begin), translation.size());
        const std::string_view word = translation.substr(begin, end - begin);
        bool isStart = true;
        for (std::size_t pos = 0; word.find_first_of("%&{<\\") == kNone && pos < word.size();) {
            const std::size_t at = pos;
            DecodeCodePoint(word, pos);
            if (!CanBeAccelerator(word, at, pos)) continue;
            const bool isLetter = LetterAt(word, at) == letter;
            if (isLetter && isStart) return begin + at;
            if (isLetter && inside == kNone) inside = begin + at;
            if (isStart && first == kNone) first = begin + at;
            isStart = false;
        }
        begin = end + 1;
    }
    return inside != kNone ? inside : first;
}

}  // namespace

bool HasAccelerator(std::string_view text) {
    return FindMark(text) != kNone;
}

std::string WithoutAccelerator(std::string_view text) {
    std::string bare;
    std::size_t done = 0;
    for (std::size_t mark = FindMark(text); mark != kNone; mark = FindMark(text, mark + 1)) {
        std::size_t behind = mark + 1;
        DecodeCodePoint(text, behind);
        const bool isEnclosed =
            mark > done && text[mark - 1] == '(' && behind < text.size() && text[behind] == ')';
        bare += text.substr(done, mark - done - (isEnclosed ? 1 : 0));
        done = isEnclosed ? behind + 1 : mark + 1;
    }
    return bare += text.substr(done);
}

std::string WithAcceleratorOf(std::string_view text, const std::string& translation) {
    const std::size_t mark = FindMark(text);
    if (mark == kNone) return WithoutAccelerator(translation);
    if (HasAccelerator(translation)) return translation;
    const std::string letter = LetterAt(text, mark + 1);
    std::string marked = translation;
    if (const std::size_t place = PlaceFor(translation, letter); place != kNone)
        return marked.insert(place, "&");
    const std::size_t last = translation.find_last_not_of(" .:");
    if (!HasLetter(translation)) return translation;
    return marked.insert(last + 1, "(&" + UpperCase(letter) + ")");
}

}  // namespace tml

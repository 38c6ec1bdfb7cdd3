#include "scan/Newids.h"

#include "base/Asciitext.h"
#include "base/Checksum.h"
#include "base/Format.h"
#include "base/Utf8.h"

namespace tml {
namespace {

constexpr std::size_t kLongest = 24;

bool IsWordChar(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// Words of a text, and whether they are all that it says.
struct TWords {
    std::string Joined;
    bool Cut = false;
};

/// "OPEN_ORDERS" of "Open orders..."; a first word that is too long by itself is cut.
TWords WordsOf(std::string_view text) {
    const std::string upper = UpperCase(AsciiOf(text));
    TWords words;
    for (std::size_t at = 0; at < upper.size();) {
        const std::size_t begin = at;
        while (at < upper.size() && IsWordChar(upper[at]))
            ++at;
        if (at == begin) {
            ++at;
            continue;
        }
        const std::string word = (words.Joined.empty() ? "" : "_") + upper.substr(begin, at - begin);
        words.Cut = words.Joined.size() + word.size() > kLongest;
        if (words.Cut && !words.Joined.empty()) break;
        words.Joined += word.substr(0, kLongest);
        if (words.Cut) break;
    }
    return words;
}

/// Seven characters at most.
std::string ChecksumOf(std::string_view text) {
    std::string digits;
    for (std::uint32_t rest = Crc32(text); rest != 0 || digits.empty(); rest /= 36)
        digits += "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[rest % 36];
    return digits;
}

}  // namespace

std::string TCountedIDs::Next(const std::string& /*text*/) {
    for (;;) {
        std::string id = prefix_ + std::to_string(++counter_);
        if (existing_.Find(id) < 0) return id;
    }
}

bool TTextIDs::Take(const std::string& id, const std::string& text) {
    const int index = existing_.Find(id);
    if (index >= 0 && existing_.Entries()[static_cast<std::size_t>(index)].Base() != text) return false;
    return given_.try_emplace(UpperCase(id), text).first->second == text;
}

std::string TTextIDs::Next(const std::string& text) {
    const TWords words = WordsOf(text);
    std::string plain = prefix_ + words.Joined;
    if (!words.Joined.empty() && !words.Cut && Take(plain, text)) return plain;
    std::string marked = plain + (words.Joined.empty() ? "" : "_") + ChecksumOf(text);
    if (Take(marked, text)) return marked;
    for (int number = 2;; ++number)
        if (std::string id = Format("%s_%d", marked, number); Take(id, text)) return id;
}

}  // namespace tml

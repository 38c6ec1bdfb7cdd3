// A line is read from left to right, escapes before the delimiter. Since a field never holds the delimiter's
// first character as it is, whatever looks like a delimiter is one.
#include "tables/Filefields.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "base/Utf8.h"

namespace tml {
namespace {

enum class TWhere { Everywhere, Keys, KeyStarts, Ends };

struct TEscape {
    char Letter;
    char Character;
    TWhere Where;
};

constexpr TEscape kEscapes[] = {
    {'r', '\r', TWhere::Everywhere}, {'n', '\n', TWhere::Everywhere}, {'z', '\0', TWhere::Everywhere},
    {'q', '=', TWhere::Keys},        {'c', ';', TWhere::KeyStarts},   {'b', '[', TWhere::KeyStarts},
    {'s', ' ', TWhere::Ends},        {'t', '\t', TWhere::Ends},
};
constexpr char kMarkLetter = 'e';
constexpr char kDelimiterLetter = 'd';

constexpr std::size_t ByteOf(char c) {
    return static_cast<unsigned char>(c);
}

}  // namespace

TFileFields::TFileFields(std::string delimiter)
    : delimiter_(std::move(delimiter)),
      first_(LeftCodePoints(delimiter_, 1)),
      mark_(first_ == "\\" ? '^' : '\\') {
    const auto take = [](TLetters& letters, std::initializer_list<TWhere> places) {
        for (const TEscape& escape : kEscapes)
            if (std::find(places.begin(), places.end(), escape.Where) != places.end())
                letters[ByteOf(escape.Character)] = escape.Letter;
    };
    take(inFields_, {TWhere::Everywhere});
    take(inKeys_, {TWhere::Everywhere, TWhere::Keys});
    take(atEnds_, {TWhere::Ends});
    take(atKeyStarts_, {TWhere::Ends, TWhere::KeyStarts});
    // A file that is not there yet may be opened without a delimiter.
    if (!first_.empty()) inFields_[ByteOf(first_.front())] = kDelimiterLetter;
    inFields_[ByteOf(mark_)] = inKeys_[ByteOf(mark_)] = kMarkLetter;
    for (const char c : {mark_, '=', *delimiter_.c_str()})
        isRead_[ByteOf(c)] = true;
}

std::size_t TFileFields::EndOfPlain(std::string_view text, std::size_t pos) const {
    while (pos < text.size() && !isRead_[ByteOf(text[pos])])
        ++pos;
    return pos;
}

void TFileFields::AppendLine(std::string& lines, std::string_view key,
                             const std::vector<std::string_view>& fields) const {
    Append(lines, key, {inKeys_, &atKeyStarts_, &atEnds_});
    lines += '=';
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) lines += delimiter_;
        Append(lines, fields[i],
               {inFields_, i == 0 ? &atEnds_ : nullptr, i + 1 == fields.size() ? &atEnds_ : nullptr});
    }
    lines += '\n';
}

void TFileFields::Append(std::string& line, std::string_view text, const TPiece& piece) const {
    const auto letterOf = [&](const TLetters* edge, char c) {
        return edge == nullptr || piece.Inside[ByteOf(c)] != '\0' ? '\0' : (*edge)[ByteOf(c)];
    };
    if (text.empty()) return;
    char first = letterOf(piece.First, text.front());
    char last = letterOf(piece.Last, text.back());
    // A single character is both.
    if (text.size() == 1) {
        if (first == '\0') first = last;
        last = '\0';
    }
    if (first != '\0') {
        (line += mark_) += first;
        text.remove_prefix(1);
    }
    if (last != '\0') text.remove_suffix(1);
    AppendInside(line, text, piece.Inside);
    if (last != '\0') (line += mark_) += last;
}

void TFileFields::AppendInside(std::string& line, std::string_view text, const TLetters& letters) const {
    const std::size_t begin = line.size();
    line.resize(begin + 2 * text.size());  // where every byte is escaped
    char* out = line.data() + begin;
    const char* const end = text.data() + text.size();
    const auto isEscaped = [&](char c) { return letters[ByteOf(c)] != '\0'; };
    for (const char* at = text.data(); at != end;) {
        const char* const plain = std::exchange(at, std::find_if(at, end, isEscaped));
        out = std::copy(plain, at, out);
        while (at != end && isEscaped(*at)) {
            const char letter = letters[ByteOf(*at)];
            const bool isDelimiter = letter == kDelimiterLetter;
            // Another character may begin with the byte that the delimiter begins with.
            if (isDelimiter && first_.size() > 1 && !std::string_view(at, end).starts_with(first_)) {
                *out++ = *at++;
                continue;
            }
            *out++ = mark_;
            *out++ = letter;
            at += isDelimiter ? first_.size() : 1;
        }
    }
    line.resize(static_cast<std::size_t>(out - line.data()));
}

TFileEntry TFileFields::Read(std::string_view line) const {
    constexpr std::string_view kBlanks = " \t";
    TFileEntry entry;
    // Blanks around "=" are no text, for those of a text are escaped there.
    const std::string_view key = line.substr(0, line.find('='));
    const std::size_t keyEnd = key.find_last_not_of(kBlanks) + 1;
    for (std::size_t pos = 0; pos < keyEnd;)
        pos = ReadCharacter(key.substr(0, keyEnd), pos, entry.Key);
    if (key.size() == line.size()) return entry;
    line.remove_prefix(key.size() + 1);
    const bool beginsBlank =
        !delimiter_.empty() && kBlanks.find(delimiter_.front()) != std::string_view::npos;
    if (!beginsBlank) line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    entry.Fields.emplace_back();
    for (std::size_t pos = 0; pos < line.size();) {
        if (line.substr(pos).starts_with(delimiter_)) {
            entry.Fields.emplace_back();
            pos += delimiter_.size();
        } else {
            pos = ReadCharacter(line, pos, entry.Fields.back());
        }
    }
    return entry;
}

std::size_t TFileFields::ReadCharacter(std::string_view line, std::size_t pos, std::string& text) const {
    if (const std::size_t end = EndOfPlain(line, pos); end > pos) {
        text.append(line, pos, end - pos);
        return end;
    }
    const char letter = line[pos] == mark_ && pos + 1 < line.size() ? line[pos + 1] : '\0';
    const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                      [&](const TEscape& row) { return row.Letter == letter; });
    if (letter == kMarkLetter) {
        text += mark_;
    } else if (letter == kDelimiterLetter) {
        text += first_;
    } else if (escape != std::end(kEscapes)) {
        text += escape->Character;
    } else {
        text += line[pos];
        return pos + 1;
    }
    return pos + 2;
}

}  // namespace tml

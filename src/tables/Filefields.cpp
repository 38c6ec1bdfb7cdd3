// A line is read from left to right, escapes before the delimiter. Since a field never holds the delimiter's
// first character as it is, whatever looks like a delimiter is one.
#include "tables/Filefields.h"

#include <algorithm>
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

/// The letter of a character that is escaped at the edges of a piece.
char LetterAtEdge(char c, bool isKeyStart, bool isEnd) {
    if (!isKeyStart && !isEnd) return '\0';
    for (const TEscape& escape : kEscapes)
        if (escape.Character == c &&
            ((escape.Where == TWhere::KeyStarts && isKeyStart) || (escape.Where == TWhere::Ends && isEnd)))
            return escape.Letter;
    return '\0';
}

}  // namespace

TFileFields::TFileFields(std::string delimiter)
    : delimiter_(std::move(delimiter)),
      first_(LeftCodePoints(delimiter_, 1)),
      mark_(first_ == "\\" ? '^' : '\\') {
    for (const TEscape& escape : kEscapes) {
        const bool isEverywhere = escape.Where == TWhere::Everywhere;
        if (isEverywhere) inFields_[ByteOf(escape.Character)] = escape.Letter;
        if (isEverywhere || escape.Where == TWhere::Keys) inKeys_[ByteOf(escape.Character)] = escape.Letter;
    }
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
                             const std::vector<std::string>& fields) const {
    Append(lines, key, {true, true, true});
    lines += '=';
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) lines += delimiter_;
        Append(lines, fields[i], {false, i == 0, i + 1 == fields.size()});
    }
    lines += '\n';
}

void TFileFields::Append(std::string& line, std::string_view text, TPiece piece) const {
    const TLetters& letters = piece.IsKey ? inKeys_ : inFields_;
    const std::size_t begin = line.size();
    line.resize(begin + 2 * text.size());  // where every byte is escaped
    char* end = line.data() + begin;
    for (std::size_t pos = 0; pos < text.size(); ++pos) {
        if (pos > 0)
            for (; pos + 1 < text.size() && letters[ByteOf(text[pos])] == '\0'; ++pos)
                *end++ = text[pos];
        const char letter = LetterAt(text, pos, piece);
        if (letter == '\0') {
            *end++ = text[pos];
            continue;
        }
        *end++ = mark_;
        *end++ = letter;
        if (letter == kDelimiterLetter) pos += first_.size() - 1;
    }
    line.resize(static_cast<std::size_t>(end - line.data()));
}

char TFileFields::LetterAt(std::string_view text, std::size_t pos, TPiece piece) const {
    const char letter = (piece.IsKey ? inKeys_ : inFields_)[ByteOf(text[pos])];
    const bool isDelimiter =
        letter == kDelimiterLetter && (first_.size() == 1 || text.substr(pos).starts_with(first_));
    if (letter == kDelimiterLetter && !isDelimiter) return '\0';
    const bool isFirst = pos == 0;
    const bool isLast = pos + 1 == text.size();
    if (letter != '\0' || (!isFirst && !isLast)) return letter;
    return LetterAtEdge(text[pos], piece.IsKey && isFirst,
                        (piece.IsFirst && isFirst) || (piece.IsLast && isLast));
}

TFileEntry TFileFields::Read(std::string_view line) const {
    TFileEntry entry;
    std::size_t pos = 0;
    // "=" is no plain character.
    while (pos < line.size() && line[pos] != '=')
        pos = ReadCharacter(line, pos, entry.Key);
    if (pos == line.size()) return entry;
    entry.Fields.emplace_back();
    for (++pos; pos < line.size();) {
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

// A line is read from left to right, escapes before the delimiter. Since a field never holds the delimiter's
// first character as it is, whatever looks like a delimiter is one.
#include "tables/Filefields.h"

#include <algorithm>
#include <array>
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

/// The end of the characters from pos on that stand in a line for themselves: that are never escaped and
/// begin neither an escape nor a delimiter.
std::size_t EndOfPlain(std::string_view text, std::size_t pos, char mark, const std::string& delimiter) {
    static constexpr auto kEscaped = [] {
        std::array<bool, 256> escaped{};
        for (const TEscape& escape : kEscapes)
            escaped[static_cast<unsigned char>(escape.Character)] = true;
        return escaped;
    }();
    // A file that is not there yet may be opened without a delimiter.
    const char begin = *delimiter.c_str();
    while (pos < text.size() && text[pos] != mark && text[pos] != begin &&
           !kEscaped[static_cast<unsigned char>(text[pos])])
        ++pos;
    return pos;
}

}  // namespace

TFileFields::TFileFields(std::string delimiter)
    : delimiter_(std::move(delimiter)),
      first_(LeftCodePoints(delimiter_, 1)),
      mark_(first_ == "\\" ? '^' : '\\') {}

std::string TFileFields::Write(std::string_view key, const std::vector<std::string_view>& fields) const {
    std::string line;
    Append(line, key, {true, true, true});
    line += '=';
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) line += delimiter_;
        Append(line, fields[i], {false, i == 0, i + 1 == fields.size()});
    }
    return line;
}

void TFileFields::Append(std::string& line, std::string_view text, TPiece piece) const {
    const auto isEscaped = [&](const TEscape& escape, std::size_t pos) {
        switch (escape.Where) {
            case TWhere::Everywhere:
                return true;
            case TWhere::Keys:
                return piece.IsKey;
            case TWhere::KeyStarts:
                return piece.IsKey && pos == 0;
            case TWhere::Ends:
                return (piece.IsFirst && pos == 0) || (piece.IsLast && pos + 1 == text.size());
        }
        return false;
    };
    for (std::size_t pos = 0; pos < text.size(); ++pos) {
        const std::size_t plain = EndOfPlain(text, pos, mark_, delimiter_);
        line.append(text, pos, plain - pos);
        if (plain == text.size()) break;
        pos = plain;
        const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes), [&](const TEscape& row) {
            return row.Character == text[pos] && isEscaped(row, pos);
        });
        if (text[pos] == mark_) {
            line += {mark_, kMarkLetter};
        } else if (!piece.IsKey && text.substr(pos).starts_with(first_)) {
            line += {mark_, kDelimiterLetter};
            pos += first_.size() - 1;
        } else if (escape != std::end(kEscapes)) {
            line += {mark_, escape->Letter};
        } else {
            line += text[pos];
        }
    }
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
    if (const std::size_t end = EndOfPlain(line, pos, mark_, delimiter_); end > pos) {
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

// A line is read from left to right, escapes before the delimiter. Since a field never holds the delimiter's
// first character as it is, whatever looks like a delimiter is one.
#include "tables/Filefields.h"

#include <algorithm>
#include <utility>

#include "base/Utf8.h"

namespace tml {
namespace {

enum class TWhere { Everywhere, Keys, KeyStarts, Ends };

constexpr bool IsAtEndsOnly(TWhere where) {
    return where == TWhere::KeyStarts || where == TWhere::Ends;
}

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

}  // namespace

TFileFields::TFileFields(std::string delimiter)
    : delimiter_(std::move(delimiter)),
      first_(LeftCodePoints(delimiter_, 1)),
      mark_(first_ == "\\" ? '^' : '\\') {
    plain_.fill(TPlain::Everywhere);
    for (const TEscape& escape : kEscapes)
        PlainOf(escape.Character) = IsAtEndsOnly(escape.Where) ? TPlain::Within : TPlain::Nowhere;
    PlainOf(mark_) = TPlain::Nowhere;
    // A file that is not there yet may be opened without a delimiter.
    PlainOf(*delimiter_.c_str()) = TPlain::Nowhere;
}

std::size_t TFileFields::EndOfPlain(std::string_view text, std::size_t pos) const {
    while (pos < text.size() && PlainOf(text[pos]) != TPlain::Nowhere)
        ++pos;
    return pos;
}

std::size_t TFileFields::EndOfUnescaped(std::string_view text, std::size_t pos) const {
    const std::size_t last = text.size() - 1;
    if (pos == 0 && PlainOf(text[0]) != TPlain::Everywhere) return 0;
    if (pos < last) pos = EndOfPlain(text.substr(0, last), std::max<std::size_t>(pos, 1));
    return pos == last && PlainOf(text[last]) == TPlain::Everywhere ? text.size() : pos;
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
    const auto escapeAs = [&](char letter) {
        line.push_back(mark_);
        line.push_back(letter);
    };
    for (std::size_t pos = 0; pos < text.size(); ++pos) {
        const std::size_t plain = EndOfUnescaped(text, pos);
        if (plain > pos) line.append(text, pos, plain - pos);
        if (plain == text.size()) break;
        pos = plain;
        if (text[pos] == mark_) {
            escapeAs(kMarkLetter);
            continue;
        }
        if (!piece.IsKey && text.substr(pos).starts_with(first_)) {
            escapeAs(kDelimiterLetter);
            pos += first_.size() - 1;
            continue;
        }
        const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes), [&](const TEscape& row) {
            return row.Character == text[pos] && isEscaped(row, pos);
        });
        if (escape != std::end(kEscapes))
            escapeAs(escape->Letter);
        else
            line += text[pos];
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

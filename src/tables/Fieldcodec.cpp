// An escape is a rare control character and a letter for what it stands for. Neither may be the
// delimiter, so each has a second choice.
#include "tables/Fieldcodec.h"

#include <array>
#include <numeric>
#include <optional>

namespace tml {
namespace {

constexpr char MarkFor(std::string_view delimiter) {
    return delimiter == "\x02" ? '\x03' : '\x02';
}

/// What is escaped by which letter behind the mark.
struct TEscapes {
    char Mark;
    std::array<char, 4> Letters = {'d', 'r', 'n', 'e'};
    std::array<std::string_view, 4> Meanings;
    std::array<char, 4> Starts;  ///< the first byte of each meaning

    explicit TEscapes(std::string_view delimiter) : Mark(MarkFor(delimiter)) {
        for (char& letter : Letters)
            if (delimiter == std::string_view(&letter, 1)) letter = static_cast<char>(letter - 'a' + 'A');
        Meanings = {delimiter, "\r", "\n", std::string_view(&Mark, 1)};
        Starts = {delimiter.front(), '\r', '\n', Mark};
    }
    TEscapes(const TEscapes&) = delete;
    TEscapes& operator=(const TEscapes&) = delete;
};

void AppendEncoded(std::string& line, std::string_view value, const TEscapes& escapes) {
    const auto isStart = [&](char c) {
        return c == escapes.Starts[0] || c == escapes.Starts[1] || c == escapes.Starts[2] ||
               c == escapes.Starts[3];
    };
    std::size_t done = 0;
    for (std::size_t pos = 0;;) {
        while (pos < value.size() && !isStart(value[pos]))
            ++pos;
        if (pos == value.size()) break;
        std::size_t kind = 0;
        while (kind < escapes.Meanings.size() && !value.substr(pos).starts_with(escapes.Meanings[kind]))
            ++kind;
        if (kind == escapes.Meanings.size()) {
            ++pos;
            continue;
        }
        line.append(value, done, pos - done) += {escapes.Mark, escapes.Letters[kind]};
        done = pos += escapes.Meanings[kind].size();
    }
    line.append(value, done);
}

/// A mark without one of the letters behind it stands for itself.
std::string Decode(std::string_view field, const TEscapes& escapes) {
    std::size_t mark = field.find(escapes.Mark);
    if (mark == std::string_view::npos) return std::string(field);
    std::string value;
    const std::string_view letters(escapes.Letters.data(), escapes.Letters.size());
    for (; mark != std::string_view::npos; mark = field.find(escapes.Mark)) {
        const std::size_t kind =
            mark + 1 < field.size() ? letters.find(field[mark + 1]) : std::string_view::npos;
        const bool isEscape = kind != std::string_view::npos;
        value += field.substr(0, mark + (isEscape ? 0 : 1));
        if (isEscape) value += escapes.Meanings[kind];
        field.remove_prefix(mark + (isEscape ? 2 : 1));
    }
    return value += field;
}

}  // namespace

std::vector<std::string> SplitFields(std::string_view line, std::string_view delimiter) {
    std::vector<std::string> fields;
    SplitFields(line, delimiter, fields);
    return fields;
}

void SplitFields(std::string_view line, std::string_view delimiter, std::vector<std::string>& fields) {
    std::optional<TEscapes> escapes;  // most lines have none
    if (line.find(MarkFor(delimiter)) != std::string_view::npos) escapes.emplace(delimiter);
    constexpr std::size_t kUsual = 4;  // a key and three languages
    fields.clear();
    fields.reserve(kUsual);
    const auto take = [&](std::string_view field) {
        if (escapes)
            fields.push_back(Decode(field, *escapes));
        else
            fields.emplace_back(field);
    };
    const auto end = [&] {
        return delimiter.size() == 1 ? line.find(delimiter.front()) : line.find(delimiter);
    };
    for (std::size_t pos = end(); pos != std::string_view::npos; pos = end()) {
        take(line.substr(0, pos));
        line.remove_prefix(pos + delimiter.size());
    }
    take(line);
}

std::string JoinFields(const std::vector<std::string_view>& fields, std::string_view delimiter) {
    const TEscapes escapes(delimiter);
    std::string line;
    line.reserve(
        std::accumulate(fields.begin(), fields.end(), fields.size() * delimiter.size(),
                        [](std::size_t size, std::string_view field) { return size + field.size(); }));
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) line += delimiter;
        AppendEncoded(line, fields[i], escapes);
    }
    return line;
}

}  // namespace tml

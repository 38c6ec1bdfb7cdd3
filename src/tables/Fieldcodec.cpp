// An escape is a rare control character and a letter for what it stands for. Neither may be the
// delimiter, so each has a second choice.
#include "tables/Fieldcodec.h"

#include <array>

namespace tml {
namespace {

struct TEscape {
    char Mark;
    std::array<char, 4> Letters;  ///< for the delimiter, CR, LF and the mark itself
};

TEscape EscapeFor(std::string_view delimiter) {
    TEscape escape{'\x02', {'d', 'r', 'n', 'e'}};
    if (delimiter == "\x02") escape.Mark = '\x03';
    for (char& letter : escape.Letters)
        if (delimiter == std::string_view(&letter, 1)) letter = static_cast<char>(letter - 'a' + 'A');
    return escape;
}

std::array<std::string_view, 4> Meanings(std::string_view delimiter, const TEscape& escape) {
    return {delimiter, "\r", "\n", std::string_view(&escape.Mark, 1)};
}

/// The fields of a line as stored.
std::vector<std::string_view> RawFields(std::string_view line, std::string_view delimiter) {
    std::vector<std::string_view> fields;
    while (true) {
        const std::size_t end = line.find(delimiter);
        fields.push_back(line.substr(0, end));
        if (end == std::string_view::npos) return fields;
        line.remove_prefix(end + delimiter.size());
    }
}

}  // namespace

std::string EncodeField(std::string_view value, std::string_view delimiter) {
    const TEscape escape = EscapeFor(delimiter);
    const auto meanings = Meanings(delimiter, escape);
    std::string field;
    for (std::size_t pos = 0; pos < value.size();) {
        std::size_t kind = 0;
        while (kind < meanings.size() && !value.substr(pos).starts_with(meanings[kind]))
            ++kind;
        if (kind == meanings.size()) {
            field += value[pos++];
            continue;
        }
        field += {escape.Mark, escape.Letters[kind]};
        pos += meanings[kind].size();
    }
    return field;
}

std::string DecodeField(std::string_view field, std::string_view delimiter) {
    const TEscape escape = EscapeFor(delimiter);
    const auto meanings = Meanings(delimiter, escape);
    std::string value;
    for (std::size_t pos = 0; pos < field.size(); ++pos) {
        const std::string_view letters(escape.Letters.data(), escape.Letters.size());
        const std::size_t kind = field[pos] == escape.Mark && pos + 1 < field.size()
                                     ? letters.find(field[pos + 1])
                                     : std::string_view::npos;
        if (kind == std::string_view::npos) {
            value += field[pos];
            continue;
        }
        value += meanings[kind];
        ++pos;
    }
    return value;
}

std::string ExtractWord(int n, std::string_view line, std::string_view delimiter) {
    const std::vector<std::string_view> fields = RawFields(line, delimiter);
    if (n < 1 || static_cast<std::size_t>(n) > fields.size()) return {};
    return std::string(fields[static_cast<std::size_t>(n) - 1]);
}

std::vector<std::string> SplitFields(std::string_view line, std::string_view delimiter) {
    std::vector<std::string> fields;
    for (const std::string_view field : RawFields(line, delimiter))
        fields.push_back(DecodeField(field, delimiter));
    return fields;
}

std::string JoinFields(const std::vector<std::string>& fields, std::string_view delimiter) {
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) line += delimiter;
        line += EncodeField(fields[i], delimiter);
    }
    return line;
}

}  // namespace tml

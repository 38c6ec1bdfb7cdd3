#include "cli/Jsonlines.h"

#include <array>
#include <cstdio>
#include <string>

#include "base/Utf8.h"

namespace tml {
namespace {

/// What stands for a code point, "" for one that stands as it is.
std::string EscapeFor(char32_t codePoint) {
    if (codePoint == '"' || codePoint == '\\') return {'\\', static_cast<char>(codePoint)};
    if (codePoint == 0xFFFD) return "\xEF\xBF\xBD";  // also for a byte that is no UTF-8
    if (codePoint >= 0x20) return {};
    std::array<char, 8> escape{};
    std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(codePoint));
    return escape.data();
}

}  // namespace

TJsonLine& TJsonLine::Text(std::string_view name, std::string_view value) {
    Name(name);
    Quoted(value);
    return *this;
}

TJsonLine& TJsonLine::Number(std::string_view name, std::int64_t value) {
    Name(name);
    out_ << value;
    return *this;
}

TJsonLine& TJsonLine::Null(std::string_view name) {
    Name(name);
    out_ << "null";
    return *this;
}

void TJsonLine::Name(std::string_view name) {
    if (!first_) out_ << ',';
    first_ = false;
    out_ << '"' << name << "\":";
}

void TJsonLine::Quoted(std::string_view text) {
    out_ << '"';
    std::size_t written = 0;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t begin = pos;
        const std::string escape = EscapeFor(DecodeCodePoint(text, pos));
        if (escape.empty()) continue;
        out_ << text.substr(written, begin - written) << escape;
        written = pos;
    }
    out_ << text.substr(written) << '"';
}

}  // namespace tml

#include "cli/Jsonlines.h"

#include <array>
#include <cstdio>

#include "base/Utf8.h"

namespace tml {

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
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t begin = pos;
        const char32_t codePoint = DecodeCodePoint(text, pos);
        if (codePoint == '"' || codePoint == '\\') {
            out_ << '\\' << static_cast<char>(codePoint);
        } else if (codePoint < 0x20) {
            std::array<char, 8> escape{};
            std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(codePoint));
            out_ << escape.data();
        } else if (codePoint == 0xFFFD) {
            out_ << "\xEF\xBF\xBD";  // also for a byte that is no UTF-8
        } else {
            out_ << text.substr(begin, pos - begin);
        }
    }
    out_ << '"';
}

}  // namespace tml

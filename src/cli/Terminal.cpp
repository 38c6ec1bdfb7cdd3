#include "cli/Terminal.h"

#include <cstdlib>
#include <iostream>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace tml {
namespace {

bool AskTerminal(TStream stream) {
    const int number = stream == TStream::Output ? 1 : 2;
#ifdef _WIN32
    return _isatty(number) != 0;
#else
    return ::isatty(number) != 0;
#endif
}

bool AskColours(TStream stream) {
    const char* refused = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    return IsTerminal(stream) && (refused == nullptr || *refused == '\0') &&
           (terminal == nullptr || std::string_view(terminal) != "dumb");
}

bool HasColours(TStream stream) {
    static const bool output = AskColours(TStream::Output);
    static const bool error = AskColours(TStream::Error);
    return stream == TStream::Output ? output : error;
}

const char* CodeOf(TStyle style) {
    switch (style) {
        case TStyle::Error:
            return "1;31";
        case TStyle::Place:
            return "35";
        case TStyle::Name:
            return "36";
        case TStyle::Added:
            return "32";
        case TStyle::Removed:
            return "31";
        case TStyle::Heading:
            return "1";
    }
    return "0";
}

}  // namespace

bool IsTerminal(TStream stream) {
    static const bool output = AskTerminal(TStream::Output);
    static const bool error = AskTerminal(TStream::Error);
    return stream == TStream::Output ? output : error;
}

std::string Styled(TStream stream, TStyle style, std::string_view text) {
    if (!HasColours(stream)) return std::string(text);
    return std::string("\x1b[") + CodeOf(style) + "m" + std::string(text) + "\x1b[m";
}

std::string OnOneLine(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string line;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '\n')
            line += "\\n";
        else if (c == '\r')
            line += "\\r";
        else if (c == '\t')
            line += "\\t";
        else if (code < 0x20 || code == 0x7F)
            (line += "\\x").append({kDigits[code >> 4U], kDigits[code & 15U]});
        else
            line += c;
    }
    return line;
}

std::string ExactOnOneLine(std::string_view text) {
    std::string doubled;
    for (const char c : text)
        doubled.append(c == '\\' ? 2 : 1, c);
    return OnOneLine(doubled);
}

void PrintMessage(const std::string& text) {
    std::cout.flush();
    std::cerr << Styled(TStream::Error, TStyle::Error, "tmllang:") << " " << text << "\n";
}

}  // namespace tml

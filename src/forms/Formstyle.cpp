#include "forms/Formstyle.h"

#include <optional>

#include "base/Files.h"
#include "base/Utf8.h"
#include "forms/Formchars.h"

namespace tml {

namespace {

/// What a walk over the lines of a form shows.
struct TEvidence {
    std::optional<TFormDialect> Layout;
    bool HasDoubled = false;    ///< 'it''s'
    bool HasCode39 = false;     ///< 'it'#39's'
    bool HasHighCodes = false;  ///< #128 and above
    bool HasHighBytes = false;
};

/// The layout shows where brackets stand and in long strings.
std::optional<TFormDialect> LayoutOfLine(std::string_view line) {
    if (line == ")" || line == "}" || line.starts_with("LCLVersion")) return TFormDialect::Lfm;
    if (line.ends_with("' +") || line.ends_with("')")) return TFormDialect::Dfm;
    const bool isHexEnd =
        line.size() > 2 && line.back() == '}' && IsFormChar(line[line.size() - 2], kHexDigit);
    if (isHexEnd) return TFormDialect::Dfm;
    return std::nullopt;
}

void ReadCode(std::string_view line, std::size_t& i, TEvidence& evidence) {
    unsigned code = 0;
    for (; i + 1 < line.size() && IsFormChar(line[i + 1], kDigit) && code < 0x110000; ++i) {
        code = code * 10 + static_cast<unsigned>(line[i + 1] - '0');
    }
    if (code == '\'') evidence.HasCode39 = true;
    if (code >= 0x80) evidence.HasHighCodes = true;
}

void ReadLine(std::string_view line, TEvidence& evidence) {
    if (!evidence.Layout) evidence.Layout = LayoutOfLine(line);
    bool inQuotes = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\'') {
            if (inQuotes && i + 1 < line.size() && line[i + 1] == '\'') evidence.HasDoubled = true;
            inQuotes = !inQuotes;
        } else if (line[i] == '#' && !inQuotes) {
            ReadCode(line, i, evidence);
        }
    }
    if (!evidence.HasHighBytes) evidence.HasHighBytes = !IsAscii(line);
}

TEvidence ReadLines(std::string_view text) {
    TEvidence evidence;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        ReadLine(Trim(text.substr(begin, end - begin)), evidence);
        begin = end + 1;
    }
    return evidence;
}

std::string LineEndOf(std::string_view text, TFormDialect layout) {
    const std::size_t end = text.find_first_of("\r\n");
    if (end == text.npos) return layout == TFormDialect::Dfm ? "\r\n" : "\n";
    return std::string(text.substr(end, text.substr(end).starts_with("\r\n") ? 2 : 1));
}

std::string IndentStep(std::string_view text, const TFormNodeData& root) {
    std::optional<std::size_t> inner;
    if (!root.Children.empty()) inner = root.Children.front()->Data().Span.Begin;
    if (!root.Properties.empty()) inner = root.Properties.front().Name.Begin;
    const std::string_view outside = IndentAt(text, root.Span.Begin);
    const std::string_view inside = inner ? IndentAt(text, *inner) : std::string_view{};
    return inside.size() > outside.size() ? std::string(inside.substr(outside.size())) : "  ";
}

}  // namespace

std::string_view IndentAt(std::string_view text, std::size_t offset) {
    std::size_t begin = offset;
    while (begin > 0 && (text[begin - 1] == ' ' || text[begin - 1] == '\t'))
        --begin;
    const bool atLineStart = begin == 0 || text[begin - 1] == '\n' || text[begin - 1] == '\r';
    return atLineStart ? text.substr(begin, offset - begin) : std::string_view{};
}

TFormTextStyle FindStyle(const TFormFile& file, const TFormNode& root) {
    const TEvidence evidence = ReadLines(file.Bytes());
    const bool isLfmFile = SameText(ExtensionOf(file.FileName()), ".lfm");
    TFormTextStyle style;
    style.Layout = evidence.Layout.value_or(isLfmFile ? TFormDialect::Lfm : TFormDialect::Dfm);
    const bool isLfm = style.Layout == TFormDialect::Lfm;
    style.LineEnd = LineEndOf(file.Bytes(), style.Layout);
    style.Indent = IndentStep(file.Bytes(), root.Data());
    const bool showsOne = evidence.HasCode39 != evidence.HasDoubled;
    style.DoubledApostrophe = showsOne ? evidence.HasDoubled : isLfm;
    const bool showsWay = evidence.HasHighBytes != evidence.HasHighCodes;
    style.RawCharacters = showsWay ? evidence.HasHighBytes : isLfm;
    return style;
}

}  // namespace tml

#include "source/Newlines.h"

#include <algorithm>

namespace tml {
namespace {

std::size_t NextCode(const TSourceText& source, std::size_t end) {
    const std::vector<TToken>& tokens = source.Tokens();
    auto token = std::lower_bound(tokens.begin(), tokens.end(), end,
                                  [](const TToken& t, std::size_t at) { return t.Begin < at; });
    while (token != tokens.end() && token->Kind == TTokenKind::Comment)
        ++token;
    return token == tokens.end() ? source.Text().size() : token->Begin;
}

/// A back slash in front of a line break continues a C++ line.
bool IsContinued(const TSourceText& source, std::size_t lineBreak) {
    const std::string_view before = source.Text().substr(0, lineBreak);
    return source.Language().IsCPPSource && (before.ends_with("\\\r") || before.ends_with('\\'));
}

}  // namespace

std::optional<std::size_t> LineBehind(const TSourceText& source, std::size_t end) {
    const std::size_t limit = NextCode(source, end);
    for (std::size_t pos = end; (pos = source.Text().find('\n', pos)) < limit; ++pos)
        if (!source.IsCommentAt(pos) && !IsContinued(source, pos)) return pos + 1;
    return std::nullopt;
}

}  // namespace tml

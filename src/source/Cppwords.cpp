#include "source/Cppwords.h"

#include <algorithm>
#include <array>

namespace tml {
namespace {

constexpr std::array<std::string_view, 14> kWordsBeforeValue = {
    "return", "case", "else", "throw", "co_return", "co_yield", "do",
    "in",     "and",  "or",   "not",   "xor",       "delete",   "new"};
constexpr std::array<std::string_view, 4> kBeforeIndex = {")", "]", "[", ">"};

}  // namespace

bool IsWordBeforeValue(std::string_view name) {
    return std::find(kWordsBeforeValue.begin(), kWordsBeforeValue.end(), name) != kWordsBeforeValue.end();
}

bool OpensCaptures(const TSourceText& source, const std::vector<TToken>& tokens, std::size_t index) {
    if (index + 1 < tokens.size() && TextOf(source, tokens[index + 1]) == "[") return false;
    if (index == 0) return true;
    const std::string_view before = TextOf(source, tokens[index - 1]);
    if (tokens[index - 1].Kind == TTokenKind::Name) return IsWordBeforeValue(before);
    return tokens[index - 1].Kind == TTokenKind::Symbol &&
           std::find(kBeforeIndex.begin(), kBeforeIndex.end(), before) == kBeforeIndex.end();
}

}  // namespace tml

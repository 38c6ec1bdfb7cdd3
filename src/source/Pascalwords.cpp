#include "source/Pascalwords.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/Utf8.h"

namespace tml {
namespace {

#define TML_PASCAL_WORD(name, spelling) spelling,
constexpr std::string_view kWords[] = {TML_PASCAL_WORDS(TML_PASCAL_WORD)};
#undef TML_PASCAL_WORD

constexpr std::array<std::string_view, 34> kDirectives = {
    "ABSTRACT",   "ALIAS",       "ASSEMBLER",    "CDECL",        "COMPILERPROC", "CPPDECL",  "DELAYED",
    "DEPRECATED", "DISPID",      "DYNAMIC",      "EXPERIMENTAL", "EXPORT",       "EXTERNAL", "FAR",
    "FINAL",      "FORWARD",     "INLINE",       "INTERRUPT",    "IOCHECK",      "LIBRARY",  "LOCAL",
    "MESSAGE",    "NEAR",        "NOSTACKFRAME", "OVERLOAD",     "OVERRIDE",     "PASCAL",   "PLATFORM",
    "REGISTER",   "REINTRODUCE", "SAFECALL",     "STATIC",       "STDCALL",      "VIRTUAL"};
static_assert(std::is_sorted(std::begin(kWords), std::end(kWords)));
static_assert(std::is_sorted(kDirectives.begin(), kDirectives.end()));

constexpr char kLowerBit = 'a' - 'A';

constexpr bool IsAsciiLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr std::size_t kLetters = 'Z' - 'A' + 1;

/// Where the words with each first letter begin, and behind them the number of words.
constexpr auto kFirstWords = [] {
    std::array<std::size_t, kLetters + 1> first{};
    for (const std::string_view word : kWords)
        for (std::size_t behind = static_cast<std::size_t>(word.front() - 'A') + 1; behind <= kLetters;
             ++behind)
            ++first[behind];
    return first;
}();

}  // namespace

TPascalWord PascalWordOf(std::string_view name) {
    if (name.size() < 2 || !IsAsciiLetter(name.front())) return TPascalWord::None;
    const auto letter = static_cast<std::size_t>((name.front() | kLowerBit) - 'a');
    for (std::size_t word = kFirstWords[letter]; word < kFirstWords[letter + 1]; ++word)
        if (SameText(kWords[word], name)) return static_cast<TPascalWord>(word + 1);
    return TPascalWord::None;
}

bool IsRoutineDirective(std::string_view name) {
    return std::binary_search(kDirectives.begin(), kDirectives.end(), UpperCase(name));
}

int ConditionStep(std::string_view directive) {
    const std::string upper = UpperCase(directive.substr(0, 10));
    const std::string_view name = std::string_view(upper).substr(upper.find('$') + 1);
    // {$IFEND} closes; {$IF}, {$IFDEF}, {$IFNDEF} and {$IFOPT} open.
    if (name.starts_with("ENDIF") || name.starts_with("IFEND")) return -1;
    return name.starts_with("IF") ? 1 : 0;
}

}  // namespace tml

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

constexpr std::size_t kLongest = 14;

constexpr std::array<std::string_view, 34> kDirectives = {
    "ABSTRACT",   "ALIAS",       "ASSEMBLER",    "CDECL",        "COMPILERPROC", "CPPDECL",  "DELAYED",
    "DEPRECATED", "DISPID",      "DYNAMIC",      "EXPERIMENTAL", "EXPORT",       "EXTERNAL", "FAR",
    "FINAL",      "FORWARD",     "INLINE",       "INTERRUPT",    "IOCHECK",      "LIBRARY",  "LOCAL",
    "MESSAGE",    "NEAR",        "NOSTACKFRAME", "OVERLOAD",     "OVERRIDE",     "PASCAL",   "PLATFORM",
    "REGISTER",   "REINTRODUCE", "SAFECALL",     "STATIC",       "STDCALL",      "VIRTUAL"};
static_assert(std::is_sorted(std::begin(kWords), std::end(kWords)));
static_assert(std::is_sorted(kDirectives.begin(), kDirectives.end()));

}  // namespace

TPascalWord PascalWordOf(std::string_view name) {
    if (name.size() < 2 || name.size() > kLongest) return TPascalWord::None;
    const std::string upper = UpperCase(name);
    const auto* place = std::lower_bound(std::begin(kWords), std::end(kWords), upper);
    if (place == std::end(kWords) || *place != upper) return TPascalWord::None;
    return static_cast<TPascalWord>(place - std::begin(kWords) + 1);
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

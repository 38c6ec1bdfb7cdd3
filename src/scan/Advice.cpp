#include "scan/Advice.h"

namespace tml {

std::string_view AdviceWord(TAdvice advice) {
#define TML_ADVICE(name, word, text) word,
    static constexpr std::string_view kWords[] = {TML_ADVICES(TML_ADVICE)};
#undef TML_ADVICE
    return kWords[static_cast<std::size_t>(advice)];
}

std::string_view AdviceText(TAdvice advice) {
#define TML_ADVICE(name, word, text) text,
    static constexpr std::string_view kTexts[] = {TML_ADVICES(TML_ADVICE)};
#undef TML_ADVICE
    return kTexts[static_cast<std::size_t>(advice)];
}

std::vector<TAdvice> Advise(const TSourceText& source, const TReach&) {
    return std::vector<TAdvice>(source.Literals().size());
}

}  // namespace tml

#include "windows/Markedblanks.h"

#include <algorithm>

namespace tml {
namespace {

constexpr std::string_view kBlank = "\u00B7";
constexpr std::string_view kTab = "\u2192";
constexpr std::string_view kLineBreak = "\u21B5";

}  // namespace

std::string WithMarkedBlanks(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    const std::size_t last = text.find_last_not_of(' ') + 1;
    std::string marked;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEndOfPair = text[i] == '\n' && i > 0 && text[i - 1] == '\r';
        if (isEndOfPair) continue;
        if (text[i] == '\r' || text[i] == '\n')
            marked += kLineBreak;
        else if (text[i] == '\t')
            marked += kTab;
        else if (text[i] == ' ' && (i < first || i >= last))
            marked += kBlank;
        else
            marked += text[i];
    }
    return marked;
}

}  // namespace tml

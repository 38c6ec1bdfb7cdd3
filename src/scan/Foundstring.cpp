#include "scan/Foundstring.h"

#include <algorithm>

namespace tml {

std::string WrittenText(const TmlFoundSourceString& found) {
    constexpr std::string_view kSign = " + ";
    std::string text;
    if (found.CodeBefore) text += kSign;
    text += found.Replacement;
    if (found.CodeAfter) text += kSign;
    return text;
}

void TmlFoundSourceStrings::Sort() {
    std::stable_sort(items_.begin(), items_.end(),
                     [](const auto& left, const auto& right) { return left.Position < right.Position; });
}

}  // namespace tml

#include "ide/Filestep.h"

#include <algorithm>

namespace tml {

TFileStep::TFileStep(std::string fileName, const TBytes& before, TView viewBefore, const TBytes& after,
                     TView viewAfter)
    : fileName_(std::move(fileName)),
      before_{MarkOfFile(before), {}, std::move(viewBefore)},
      after_{MarkOfFile(after), {}, std::move(viewAfter)} {
    const std::string_view old = before ? *before : std::string_view();
    const std::string_view now = after ? *after : std::string_view();
    const std::size_t common = std::min(old.size(), now.size());
    begin_ = static_cast<std::size_t>(
        std::mismatch(old.begin(), old.begin() + static_cast<std::ptrdiff_t>(common), now.begin()).first -
        old.begin());
    const auto rest = static_cast<std::ptrdiff_t>(common - begin_);
    const auto end = static_cast<std::size_t>(
        std::mismatch(old.rbegin(), old.rbegin() + rest, now.rbegin()).first - old.rbegin());
    before_.Part = std::string(old.substr(begin_, old.size() - end - begin_));
    after_.Part = std::string(now.substr(begin_, now.size() - end - begin_));
}

TFileStep::TBytes TFileStep::Lead(const TBytes& bytes, TSide from, TSide to) const {
    if (!Mark(to).Exists) return std::nullopt;
    return std::string(bytes.value_or("")).replace(begin_, At(from).Part.size(), At(to).Part);
}

}  // namespace tml

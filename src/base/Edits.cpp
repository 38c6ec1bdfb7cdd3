#include "base/Edits.h"

#include <numeric>
#include <stdexcept>

namespace tml {

bool AreValid(const TEdits& edits, std::size_t textSize) {
    std::size_t last = 0;
    for (const TEdit& edit : edits) {
        if (edit.Begin < last || edit.End < edit.Begin || edit.End > textSize) return false;
        last = edit.End;
    }
    return true;
}

std::string ApplyEdits(std::string_view text, const TEdits& edits) {
    if (!AreValid(edits, text.size())) throw std::logic_error("edits do not fit the text");
    std::string result;
    result.reserve(
        std::accumulate(edits.begin(), edits.end(), text.size(),
                        [](std::size_t size, const TEdit& edit) { return size + edit.Text.size(); }));
    std::size_t done = 0;
    for (const TEdit& edit : edits) {
        result.append(text, done, edit.Begin - done);
        result += edit.Text;
        done = edit.End;
    }
    return result.append(text, done);
}

std::optional<TEdits> MovedOver(TEdits edits, const TEdits& done) {
    auto next = done.begin();
    std::size_t grown = 0;
    std::size_t removed = 0;
    for (TEdit& edit : edits) {
        for (; next != done.end() && next->End <= edit.Begin; ++next) {
            grown += next->Text.size();
            removed += next->End - next->Begin;
        }
        if (next != done.end() && next->Begin < edit.End) return std::nullopt;
        edit.Begin += grown - removed;
        edit.End += grown - removed;
    }
    return edits;
}

TEdits InverseEdits(std::string_view text, const TEdits& edits) {
    TEdits result;
    std::size_t grown = 0;
    std::size_t removed = 0;
    for (const TEdit& edit : edits) {
        const std::size_t begin = edit.Begin + grown - removed;
        result.push_back(
            {begin, begin + edit.Text.size(), std::string(text.substr(edit.Begin, edit.End - edit.Begin))});
        grown += edit.Text.size();
        removed += edit.End - edit.Begin;
    }
    return result;
}

}  // namespace tml

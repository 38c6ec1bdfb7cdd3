#include "scan/Series.h"

#include <algorithm>

#include "base/Format.h"

namespace tml {
namespace {

constexpr std::size_t kMostNotes = 20;  ///< a box with more is higher than a screen

}  // namespace

void TSeries::NoteChange(bool writesCalls) {
    ++changed_;
    writesCalls_ = writesCalls_ || writesCalls;
}

std::string TSeries::Summary(std::string_view done) const {
    if (changed_ == 0 && notes_.empty()) return {};
    std::string text = writesCalls_ ? std::string(done) + "\r\n" : std::string();
    text += Format("Changed units: %d of %d", changed_, place_.Count);
    const std::size_t shown = std::min(notes_.size(), kMostNotes);
    for (std::size_t i = 0; i < shown; ++i)
        text += "\r\n" + notes_[i];
    if (shown < notes_.size()) text += Format("\r\nAnd %d more", notes_.size() - shown);
    if (stopped_) text += Format("\r\nUnits left as they were: %d", place_.Count - changed_);
    return text;
}

}  // namespace tml

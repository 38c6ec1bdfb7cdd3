#include "runtime/Transgrid.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tml {

int TTransGrid::PlaceOf(TTransRow row) const {
    const auto found = std::lower_bound(shown_.begin(), shown_.end(), row);
    return found == shown_.end() || *found != row ? -1 : static_cast<int>(found - shown_.begin());
}

void TTransGrid::SetCurrent(int place, int column) {
    if (place < 0 || place >= Count()) return;
    current_ = RowAt(place);
    column_ = column;
    range_ = {place, place, column, column};
}

void TTransGrid::Select(TTransRange range) {
    range.FirstRow = std::max(range.FirstRow, 0);
    range.LastRow = std::min(range.LastRow, Count() - 1);
    if (range.FirstRow > range.LastRow || range.FirstColumn > range.LastColumn) return;
    range_ = range;
    current_ = RowAt(std::clamp(Place(), range.FirstRow, range.LastRow));
    column_ = std::clamp(column_, range.FirstColumn, range.LastColumn);
}

void TTransGrid::Assign(std::vector<TTransRow> rows) {
    shown_ = std::move(rows);
    KeepCurrent();
}

void TTransGrid::Update(std::vector<TTransRow> come, std::vector<TTransRow> gone) {
    if (come.empty() && gone.empty()) return;
    std::sort(come.begin(), come.end());
    std::sort(gone.begin(), gone.end());
    std::vector<TTransRow> left;
    std::set_difference(shown_.begin(), shown_.end(), gone.begin(), gone.end(), std::back_inserter(left));
    std::vector<TTransRow> all;
    std::set_union(left.begin(), left.end(), come.begin(), come.end(), std::back_inserter(all));
    Assign(std::move(all));
}

void TTransGrid::KeepCurrent() {
    ++revision_;
    if (shown_.empty()) {
        range_ = {};
        return;
    }
    const auto next = std::lower_bound(shown_.begin(), shown_.end(), current_);
    SetCurrent(std::min(static_cast<int>(next - shown_.begin()), Count() - 1), column_);
}

}  // namespace tml

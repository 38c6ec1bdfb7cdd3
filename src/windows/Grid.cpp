#include "windows/Grid.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/Utf8.h"
#include "windows/Markedblanks.h"

namespace tml {
void TGrid::Tell() const {
    if (OnChange) OnChange();
}

void TGrid::Assign(std::vector<int> ids) {
    rows_ = std::move(ids);
    Arrange();
    Tell();
}

int TGrid::PlaceOf(int id) const {
    const bool isKnown = id >= 0 && id < static_cast<int>(states_.size());
    return isKnown ? states_[static_cast<std::size_t>(id)].Place : -1;
}

std::string TGrid::Text(int place, int column) const {
    const TGridColumn& shown = Columns[static_cast<std::size_t>(column)];
    std::string text = Cell(shown_[static_cast<std::size_t>(place)], column);
    if (shown.MarksBlanks) text = WithMarkedBlanks(text);
    return shown.IsNumbered ? std::to_string(place + 1) + " (" + text + ")" : text;
}

// --- order and filter

void TGrid::SetFilter(const std::string& text) {
    filter_ = text;
    Arrange();
    Tell();
}

void TGrid::SortBy(int column, bool descending) {
    sortColumn_ = column;
    sortsDown_ = descending;
    Arrange();
    Tell();
}

bool TGrid::Passes(int id, const std::string& folded) const {
    if (folded.empty()) return true;
    for (std::size_t column = 0; column < Columns.size(); ++column) {
        if (!Columns[column].IsSearched) continue;
        if (FoldCase(Cell(id, static_cast<int>(column))).find(folded) != std::string::npos) return true;
    }
    return false;
}

std::vector<int> TGrid::Sorted(std::vector<int> ids) const {
    if (sortColumn_ < 0) return ids;
    const bool isNumber = Columns[static_cast<std::size_t>(sortColumn_)].IsNumber;
    std::vector<std::pair<std::pair<int, std::string>, int>> keyed;
    keyed.reserve(ids.size());
    for (const int id : ids) {
        const std::string text = Cell(id, sortColumn_);
        const auto number = isNumber ? static_cast<int>(ToInteger(text)) : 0;
        keyed.push_back({{number, isNumber ? std::string() : FoldCase(text)}, id});
    }
    std::stable_sort(keyed.begin(), keyed.end(), [this](const auto& a, const auto& b) {
        return sortsDown_ ? b.first < a.first : a.first < b.first;
    });
    std::transform(keyed.begin(), keyed.end(), ids.begin(), [](const auto& row) { return row.second; });
    return ids;
}

void TGrid::Arrange() {
    const std::vector<int> before = std::move(shown_);
    const int place = PlaceOf(current_);
    const std::vector<TState> states = std::exchange(states_, {});
    states_.resize(rows_.empty() ? 0 : static_cast<std::size_t>(rows_.back()) + 1);
    const std::string folded = FoldCase(filter_);
    std::vector<int> passed;
    std::copy_if(rows_.begin(), rows_.end(), std::back_inserter(passed),
                 [&](int id) { return Passes(id, folded); });
    shown_ = Sorted(std::move(passed));
    for (std::size_t i = 0; i < shown_.size(); ++i) {
        const auto id = static_cast<std::size_t>(shown_[i]);
        states_[id] = {static_cast<int>(i), id < states.size() && states[id].Selected};
    }
    MoveCurrent(before, place);
    ++revision_;
}

/// To the next row that was shown behind the current one and still is, else to the last one in front of it;
/// where it is while none is shown.
void TGrid::MoveCurrent(const std::vector<int>& before, int place) {
    if (shown_.empty() || PlaceOf(current_) >= 0) return;
    const auto isShown = [this](int id) { return PlaceOf(id) >= 0; };
    const auto from = before.begin() + std::max(place, 0);
    if (const auto next = std::find_if(from, before.end(), isShown); next != before.end())
        current_ = *next;
    else if (const auto last = std::find_if(std::reverse_iterator(from), before.rend(), isShown);
             last != before.rend())
        current_ = *last;
    else
        current_ = shown_.front();
}

// --- current row and selection

int TGrid::Current() const {
    return PlaceOf(current_) < 0 ? -1 : current_;
}

void TGrid::SetCurrent(int id) {
    if (PlaceOf(id) < 0) return;
    current_ = id;
    Tell();
}

bool TGrid::IsSelected(int id) const {
    return PlaceOf(id) >= 0 && states_[static_cast<std::size_t>(id)].Selected;
}

int TGrid::SelectedCount() const {
    return static_cast<int>(
        std::count_if(states_.begin(), states_.end(), [](const TState& state) { return state.Selected; }));
}

void TGrid::Select(const std::vector<int>& ids, const std::vector<int>& deselected) {
    for (const auto* rows : {&deselected, &ids})
        for (const int id : *rows)
            if (PlaceOf(id) >= 0) states_[static_cast<std::size_t>(id)].Selected = rows == &ids;
    Tell();
}

void TGrid::SelectOnly(const std::function<bool(int id)>& fits) {
    for (const int id : shown_)
        states_[static_cast<std::size_t>(id)].Selected = fits(id);
    Tell();
}

std::vector<int> TGrid::Affected() const {
    std::vector<int> rows;
    std::copy_if(shown_.begin(), shown_.end(), std::back_inserter(rows),
                 [this](int id) { return IsSelected(id); });
    if (rows.empty() && Current() >= 0) rows.push_back(Current());
    return rows;
}

std::vector<int> TGrid::FromCurrentOn() const {
    if (Current() < 0) return {};
    return {shown_.begin() + PlaceOf(current_), shown_.end()};
}

}  // namespace tml

#include "scan/Foundrows.h"

#include <algorithm>
#include <utility>

namespace tml {

TFoundRows::TFoundRows(TmlFoundSourceStrings found) {
    found.Sort();
    rows_.reserve(static_cast<std::size_t>(found.Count()));
    for (TmlFoundSourceString& record : found) {
        const bool isAdvised = record.Advice != TAdvice::None;
        rows_.push_back({std::move(record), TFoundPlace::Found, isAdvised});
    }
}

std::vector<int> TFoundRows::At(TFoundPlace place) const {
    std::vector<int> rows;
    for (int row = 0; row < Count(); ++row)
        if ((*this)[row].Place == place) rows.push_back(row);
    return rows;
}

int TFoundRows::CountReplaced() const {
    return static_cast<int>(
        std::count_if(begin(), end(), [](const TFoundRow& row) { return row.IsReplaced(); }));
}

int TFoundRows::CountMarked() const {
    return static_cast<int>(std::count_if(
        begin(), end(), [](const TFoundRow& row) { return row.IsTaken() && !row.IsReplaced(); }));
}

int TFoundRows::CountLeftOut() const {
    return static_cast<int>(std::count_if(
        begin(), end(), [](const TFoundRow& row) { return row.Place == TFoundPlace::Found && row.LeftOut; }));
}

TmlFoundSourceStrings TFoundRows::Kept() const {
    TmlFoundSourceStrings kept;
    for (const TFoundRow& row : *this)
        if (row.IsTaken()) kept.AddItem() = row.Record;
    return kept;
}

TFoundRow& TFoundRows::Change(int row) {
    TFoundRow& changed = rows_.at(static_cast<std::size_t>(row));
    step_.Rows.try_emplace(row, changed);
    return changed;
}

void TFoundRows::EndStep() {
    std::erase_if(step_.Rows, [this](const auto& row) { return row.second == (*this)[row.first]; });
    TStep step = std::exchange(step_, {});
    if (step.Rows.empty()) return;
    done_.push_back(std::move(step));
    undone_.clear();
}

TStringList TFoundRows::Swap(TSteps& from, TSteps& to) {
    if (from.empty()) return {};
    for (auto& [row, other] : from.back().Rows)
        std::swap(rows_[static_cast<std::size_t>(row)], other);
    to.push_back(std::move(from.back()));
    from.pop_back();
    return to.back().Words;
}

}  // namespace tml

#include "scan/Foundgrid.h"

#include <algorithm>
#include <iterator>

#include "base/Utf8.h"

namespace tml {
namespace {

constexpr int kColumns = 4;

bool ShowsText(const TFoundRow& row, const std::string& folded) {
    for (int column = 0; column < kColumns; ++column)
        if (FoldCase(TFoundGrid::Cell(row, column)).find(folded) != std::string::npos) return true;
    return false;
}

}  // namespace

TFoundRow* TFoundGrid::Current() {
    if (Row < 0 || Row >= static_cast<int>(Rows.size())) return nullptr;
    TFoundRow& row = Rows[static_cast<std::size_t>(Row)];
    return row.Shown ? &row : nullptr;
}

int TFoundGrid::SelectedCount() const {
    return static_cast<int>(
        std::count_if(Rows.begin(), Rows.end(), [](const TFoundRow& row) { return row.Selected; }));
}

std::vector<TFoundRow*> TFoundGrid::Affected() {
    std::vector<TFoundRow*> rows;
    for (TFoundRow& row : Rows)
        if (row.Selected) rows.push_back(&row);
    if (rows.empty() && Current() != nullptr) rows.push_back(Current());
    return rows;
}

std::string TFoundGrid::Cell(const TFoundRow& row, int column) {
    switch (column) {
        case 0:
            return std::to_string(row.Record.Line + 1);
        case 1:
            return row.Record.StrID;
        case 2:
            return row.Record.StrContent;
        default:
            return WrittenText(row.Record);
    }
}

void TFoundGrid::Filter(const std::string& text) {
    const std::string folded = FoldCase(text);
    for (TFoundRow& row : Rows) {
        row.Shown = folded.empty() || ShowsText(row, folded);
        row.Selected = row.Selected && row.Shown;
    }
    MoveToShown();
}

std::vector<TFoundRow> TFoundGrid::TakeOut(const std::function<bool(const TFoundRow&)>& fits) {
    std::vector<TFoundRow> taken;
    std::vector<TFoundRow> left;
    int leftInFront = 0;
    for (int i = 0; i < static_cast<int>(Rows.size()); ++i) {
        TFoundRow& row = Rows[static_cast<std::size_t>(i)];
        const bool takes = fits(row);
        if (!takes && i < Row) ++leftInFront;
        (takes ? taken : left).push_back(std::move(row));
    }
    Rows = std::move(left);
    Row = leftInFront;
    MoveToShown();
    return taken;
}

void TFoundGrid::PutIn(std::vector<TFoundRow> rows) {
    const auto comesBefore = [](const TFoundRow& a, const TFoundRow& b) {
        return a.Record.Position < b.Record.Position;
    };
    if (Row >= 0 && Row < static_cast<int>(Rows.size())) {
        const TFoundRow& current = Rows[static_cast<std::size_t>(Row)];
        Row += static_cast<int>(std::count_if(
            rows.begin(), rows.end(), [&](const TFoundRow& row) { return comesBefore(row, current); }));
    }
    for (TFoundRow& row : rows)
        row.Selected = false;
    Rows.insert(Rows.end(), std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()));
    std::stable_sort(Rows.begin(), Rows.end(), comesBefore);
    MoveToShown();
}

/// To the next shown row, or to the last one in front; where it is while none is shown.
void TFoundGrid::MoveToShown() {
    const int count = static_cast<int>(Rows.size());
    const auto shown = [&](int row) { return Rows[static_cast<std::size_t>(row)].Shown; };
    Row = std::max(0, std::min(Row, count - 1));
    for (int row = Row; row < count; ++row)
        if (shown(row)) return void(Row = row);
    for (int row = Row - 1; row >= 0; --row)
        if (shown(row)) return void(Row = row);
}

}  // namespace tml

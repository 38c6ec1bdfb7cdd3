#pragma once

#include <vector>

#include "runtime/Transtexts.h"

namespace tml {

/// A text of the forms: an entry and a column (0 the key, then the languages).
struct TTransCell {
    TTransRow Row;
    int Column = 0;
};

/// A rectangle of cells: rows by their places (0-based) among those that are shown.
struct TTransRange {
    int FirstRow = 0;
    int LastRow = 0;
    int FirstColumn = 0;
    int LastColumn = 0;

    bool IsOne() const { return FirstRow == LastRow && FirstColumn == LastColumn; }
    bool operator==(const TTransRange&) const = default;
};

/// The rows that the translation editor shows, in the order of tables and entries, with a current cell and a
/// rectangle of selected ones around it. A row whose cells change keeps its place until others are assigned.
class TTransGrid {
  public:
    const std::vector<TTransRow>& Shown() const { return shown_; }
    int Count() const { return static_cast<int>(shown_.size()); }
    TTransRow RowAt(int place) const { return shown_.at(static_cast<std::size_t>(place)); }
    /// -1 for a row that is not shown.
    int PlaceOf(TTransRow row) const;
    /// Grows when other rows are shown.
    unsigned Revision() const { return revision_; }

    /// -1 while no row is shown.
    int Place() const { return PlaceOf(current_); }
    int Column() const { return column_; }
    bool HasRow() const { return !shown_.empty(); }
    /// Row is that of no entry while none is shown.
    TTransCell Current() const { return {HasRow() ? current_ : TTransRow(), column_}; }
    const TTransRange& Selection() const { return range_; }

    /// Makes a cell the current one and the only one selected; nothing for a place that is not there.
    void SetCurrent(int place, int column);
    /// Selects a rectangle, cut to what is shown; a current cell outside of it moves into it.
    void Select(TTransRange range);

    /// Other rows, ascending. The current row stays; where it has gone, the next one shown takes its place.
    void Assign(std::vector<TTransRow> rows);
    /// Shows rows at their places, and others no longer.
    void Update(std::vector<TTransRow> come, std::vector<TTransRow> gone);

  private:
    void KeepCurrent();

    std::vector<TTransRow> shown_;
    unsigned revision_ = 0;
    TTransRow current_;
    int column_ = 1;
    TTransRange range_;
};

}  // namespace tml

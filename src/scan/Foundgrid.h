#pragma once

#include <functional>
#include <string>
#include <vector>

#include "scan/Foundstring.h"

namespace tml {

/// A row of the review with its record.
struct TFoundRow {
    TmlFoundSourceString Record;
    bool Selected = false;  ///< of shown rows only
    bool Shown = true;      ///< the filter lets it through
};

/// The grid of found or of deleted rows. Columns: line number, string ID, literal, replacement.
struct TFoundGrid {
    std::vector<TFoundRow> Rows;  ///< in the order of the source
    int Row = 0;                  ///< 0-based current row; meaningless while no row is shown

    /// The current row, nullptr when there is none.
    TFoundRow* Current();
    int SelectedCount() const;
    /// The selected rows, or the current one; none while no row is shown.
    std::vector<TFoundRow*> Affected();
    /// What a column (0-based) shows of a row.
    static std::string Cell(const TFoundRow& row, int column);

    /// Shows the rows of which a cell contains the text, without regard to case; "" shows all. What is
    /// hidden is no longer selected, and the current row is a shown one, the next where it was hidden. A
    /// row that is changed afterwards stays until the next call.
    void Filter(const std::string& text);
    /// Takes the rows that fit out and gives them in order. The current row keeps its place.
    std::vector<TFoundRow> TakeOut(const std::function<bool(const TFoundRow&)>& fits);
    /// Puts rows where the source has them, not selected. The current row stays the same.
    void PutIn(std::vector<TFoundRow> rows);

  private:
    void MoveToShown();
};

}  // namespace tml

#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tml {

struct TGridColumn {
    std::string Caption;
    int Width = 0;
    bool IsNumber = false;     ///< sorted by value and aligned to the right
    bool IsNumbered = false;   ///< the row's number as shown, 1-based, stands in front: "2 (17)"
    bool IsSearched = true;    ///< the filter looks at it
    bool MarksBlanks = false;  ///< line breaks, tabs and blanks at the ends are shown as signs
};

/// How a row is shown apart from its texts.
struct TGridLook {
    std::string Picture;  ///< in front of the first column; name of a resource, "" for none
    std::string Hint;     ///< over the first column, "" for none
    bool Grey = false;
    int StruckColumn = -1;  ///< 0-based, -1 for none
};

/// A table with the order and the filter in which its rows are shown, a current row and, apart from it, a set
/// of selected rows. Rows are known by IDs: places, 0-based, in the order that is shown while no column
/// sorts. What is hidden is never selected, and never current while another row is shown. A row whose cells
/// change keeps its place until rows come or go, or order or filter are set.
class TGrid {
  public:
    std::vector<TGridColumn> Columns;
    std::function<std::string(int id, int column)> Cell;  ///< what a cell holds
    std::function<TGridLook(int id)> Look;                ///< none: plain
    /// The column that can be edited, wherever the current cell is; -1 for none.
    int EditColumn = -1;
    std::function<void(int id, const std::string& text)> OnTyping;  ///< told while a text is typed
    std::function<void(int id, const std::string& text)> OnEdit;    ///< takes a typed text
    std::function<void()> OnChange;                                 ///< told after each call that changes

    // Rows

    /// Other rows, ascending. The current row stays; where it has gone, the next one shown takes its place.
    void Assign(std::vector<int> ids);
    const std::vector<int>& Rows() const { return rows_; }
    /// The rows that are shown, in their order.
    const std::vector<int>& Shown() const { return shown_; }
    /// In Shown, -1 when the row is not there.
    int PlaceOf(int id) const;
    /// What a cell shows.
    std::string Text(int place, int column) const;

    // Order and filter

    /// Shows the rows of which a searched cell contains the text, without regard to case; "" shows all.
    void SetFilter(const std::string& text);
    const std::string& Filter() const { return filter_; }
    /// column: -1 for the order of the IDs. Equal rows keep that order.
    void SortBy(int column, bool descending = false);
    int SortColumn() const { return sortColumn_; }
    bool SortsDown() const { return sortsDown_; }

    // Current row and selection

    /// The ID, -1 while no row is shown.
    int Current() const;
    void SetCurrent(int id);
    bool IsSelected(int id) const;
    int SelectedCount() const;
    /// Selects rows and takes others out of the selection. Hidden ones are passed over.
    void Select(const std::vector<int>& ids, const std::vector<int>& deselected = {});
    void SelectOnly(const std::function<bool(int id)>& fits);
    /// The selected rows, or the current one, in the order shown.
    std::vector<int> Affected() const;
    /// The current row and those shown behind it.
    std::vector<int> FromCurrentOn() const;

    /// Grows when other rows are shown, or in another order.
    unsigned Revision() const { return revision_; }

  private:
    struct TState {
        int Place = -1;
        bool Selected = false;
    };

    void Arrange();
    std::vector<int> Sorted(std::vector<int> ids) const;
    bool Passes(int id, const std::string& folded) const;
    void MoveCurrent(const std::vector<int>& before, int place);
    void Tell() const;

    std::vector<int> rows_;
    std::vector<int> shown_;
    std::vector<TState> states_;  ///< by ID
    std::string filter_;
    int sortColumn_ = -1;
    bool sortsDown_ = false;
    int current_ = -1;
    unsigned revision_ = 0;
};

}  // namespace tml

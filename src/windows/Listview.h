#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tml {

/// One row of a list. What it holds is the business of its kind; a window shows the cells.
class TListRow {
  public:
    virtual ~TListRow() = default;

    bool Selected = false;
    bool Focused = false;

    /// The text in a column (0-based), "" where there is none.
    virtual std::string Cell(std::size_t column) const = 0;
    /// The number of the row's picture.
    virtual int StateIndex() const { return 0; }

    /// Known for the life of the list, never used again.
    int Id() const { return id_; }

  private:
    template <typename TRow>
    friend class TListOf;
    int id_ = 0;
};

struct TListColumn {
    std::string Caption;
    int Width = 0;
};

/// A report list as its view sees it. Whoever changes it from outside its methods calls Touch.
class TListRows {
  public:
    virtual ~TListRows() = default;

    std::vector<TListColumn> Columns;

    virtual int Count() const = 0;
    /// By index (0-based).
    virtual TListRow& Row(int index) const = 0;
    /// Grows with every change.
    unsigned Revision() const { return revision_; }
    void Touch() { ++revision_; }

  private:
    unsigned revision_ = 0;
};

/// A report list of one kind of rows. A row keeps its address until it goes.
template <typename TRow>
class TListOf : public TListRows {
  public:
    const std::vector<std::unique_ptr<TRow>>& Items() const { return items_; }
    int Count() const override { return static_cast<int>(items_.size()); }
    TRow& Row(int index) const override { return *items_.at(static_cast<std::size_t>(index)); }

    template <typename... TArguments>
    TRow& Add(TArguments&&... arguments) {
        items_.push_back(std::make_unique<TRow>(std::forward<TArguments>(arguments)...));
        items_.back()->id_ = nextId_++;
        Touch();
        return *items_.back();
    }
    void Clear() {
        items_.clear();
        Touch();
    }
    /// Sorts by compare(a, b), below 0 where a comes first; it need be no strict order.
    template <typename TCompare>
    void Sort(TCompare compare);

    /// nullptr when there is none.
    TRow* Find(int id) const {
        return First(items_.begin(), [id](const TRow& row) { return row.Id() == id; });
    }
    TRow* FirstSelected() const { return First(items_.begin(), IsSelected); }
    /// The next selected row behind this one, nullptr when there is none.
    TRow* NextSelected(const TRow& row) const {
        const auto at = std::find_if(items_.begin(), items_.end(),
                                     [&row](const auto& candidate) { return candidate.get() == &row; });
        return at == items_.end() ? nullptr : First(std::next(at), IsSelected);
    }

  private:
    using TItems = std::vector<std::unique_ptr<TRow>>;

    static bool IsSelected(const TRow& row) { return row.Selected; }
    template <typename TFits>
    TRow* First(typename TItems::const_iterator from, TFits fits) const {
        const auto found = std::find_if(from, items_.end(), [&fits](const auto& row) { return fits(*row); });
        return found == items_.end() ? nullptr : found->get();
    }

    TItems items_;
    int nextId_ = 1;
};

template <typename TRow>
template <typename TCompare>
void TListOf<TRow>::Sort(TCompare compare) {
    // A merge by hand: a comparison that never gives 0 is no order that the standard sorts may be given.
    TItems other(items_.size());
    for (std::size_t width = 1; width < items_.size(); width *= 2) {
        for (std::size_t begin = 0; begin < items_.size(); begin += 2 * width) {
            std::size_t left = begin;
            const std::size_t middle = std::min(begin + width, items_.size());
            const std::size_t end = std::min(begin + 2 * width, items_.size());
            std::size_t right = middle;
            for (std::size_t out = begin; out < end; ++out) {
                const bool takeLeft =
                    right == end || (left < middle && compare(*items_[left], *items_[right]) <= 0);
                other[out] = std::move(items_[takeLeft ? left++ : right++]);
            }
        }
        items_.swap(other);
    }
    Touch();
}

/// A row that is its texts.
class TListItem : public TListRow {
  public:
    std::string Caption;
    std::vector<std::string> SubItems;
    std::shared_ptr<void> Data;

    std::string Cell(std::size_t column) const override {
        if (column == 0) return Caption;
        return column <= SubItems.size() ? SubItems[column - 1] : std::string();
    }
};

using TListView = TListOf<TListItem>;

}  // namespace tml

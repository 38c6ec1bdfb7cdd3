#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/Stringlist.h"
#include "scan/Foundstring.h"

namespace tml {

/// Where a row of the review stands.
enum class TFoundPlace { Found, Deleted, Excluded };

/// A row of the review with its record.
struct TFoundRow {
    TmlFoundSourceString Record;
    TFoundPlace Place = TFoundPlace::Found;
    bool LeftOut = false;  ///< stands among the found rows, but its literal stays

    bool IsTaken() const { return Place == TFoundPlace::Found && !LeftOut; }
    /// A mark is written, too, but its literal stays.
    bool IsReplaced() const { return IsTaken() && !Record.MarkedToIgnore; }
    /// Only a mark, which leaves the literal as it is, takes a row that no call may replace.
    void LeaveOut(bool leftOut) {
        LeftOut = leftOut || (ForbidsCall(Record.Advice) && !Record.MarkedToIgnore);
    }
    bool operator==(const TFoundRow&) const = default;
};

/// The rows of a review in the order of the source, known by their places (0-based), with what was done to
/// them, step by step.
class TFoundRows {
  public:
    /// Rows that carry an advice begin as left out.
    explicit TFoundRows(TmlFoundSourceStrings found);

    int Count() const { return static_cast<int>(rows_.size()); }
    const TFoundRow& operator[](int row) const { return rows_.at(static_cast<std::size_t>(row)); }
    std::vector<TFoundRow>::const_iterator begin() const { return rows_.begin(); }
    std::vector<TFoundRow>::const_iterator end() const { return rows_.end(); }
    std::vector<int> At(TFoundPlace place) const;
    int CountReplaced() const;
    int CountMarked() const;
    int CountLeftOut() const;
    /// The records of the rows taken, in the order of the source.
    TmlFoundSourceStrings Kept() const;

    /// A row to be changed, as a part of the step that EndStep ends.
    TFoundRow& Change(int row);
    /// Words that the step has put among those to be skipped.
    void AddWords(const TStringList& words) { step_.Words = words; }
    /// What was changed since the last call is one step of undo; nothing when all is as it was.
    void EndStep();

    bool CanUndo() const { return !done_.empty(); }
    bool CanRedo() const { return !undone_.empty(); }
    /// Take a step back, or take it again. Give its words.
    TStringList Undo() { return Swap(done_, undone_); }
    TStringList Redo() { return Swap(undone_, done_); }

  private:
    struct TStep {
        std::map<int, TFoundRow> Rows;  ///< as they are on its other side
        TStringList Words;
    };
    using TSteps = std::vector<TStep>;

    TStringList Swap(TSteps& from, TSteps& to);

    std::vector<TFoundRow> rows_;
    TStep step_;
    TSteps done_, undone_;
};

}  // namespace tml

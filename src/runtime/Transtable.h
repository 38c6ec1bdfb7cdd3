#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tables/States.h"

namespace tml {

/// How far the texts of a language are.
struct TTransProgress {
    int Texts = 0;
    std::array<int, 4> States = {};

    int Done() const { return States[static_cast<std::size_t>(TTextState::Done)]; }
    /// Rounded down, so that 100 means all.
    int Percent() const { return Texts == 0 ? 100 : static_cast<int>(100LL * Done() / Texts); }
    TTransProgress& operator+=(const TTransProgress& other);
};

/// A table of a form with what a person has edited over it; the table itself stays as it was read. Entries
/// are known by their indexes (0-based), new ones stand at the end, and none moves when another one goes.
class TTransTable {
  public:
    /// form: whose table it is, as the caller counts forms. extended: it holds the extended translations,
    /// which have no states.
    TTransTable(int form, TTable table, int languages, bool extended = false);

    int Form() const { return form_; }
    /// The property that holds the table.
    std::string_view Property() const;
    bool IsStrings() const { return stored_.Type() == TStringsType::stStrings; }
    bool IsExtended() const { return extended_; }
    bool HasStates() const { return hasStates_; }
    /// Those that have gone included.
    int Count() const { return count_; }
    /// Without those that have gone.
    int Present() const { return present_; }
    /// nullptr for one that has gone.
    const TTableEntry* Find(int index) const;
    /// The index of an entry with the key, -1 without one.
    int FindKey(std::string_view key) const;
    /// Settings have no texts to be counted.
    const TTransProgress& Progress(int place) const { return progress_[static_cast<std::size_t>(place) - 1]; }

    /// Gives an entry another content, none for one that goes, and gives what it was. Index Count() begins a
    /// new one.
    std::optional<TTableEntry> Put(int index, std::optional<TTableEntry> entry);
    /// Gives an entry another key, in the table as it was read as well.
    void Rename(int index, const std::string& key);

    bool IsStored(int index) const { return index < static_cast<int>(stored_.Entries().size()); }
    /// The table as it was read, but for keys that have been renamed.
    const TTable& Stored() const { return stored_; }
    bool HasEdits() const { return !edits_.empty(); }
    /// The table with the edits.
    TTable Edited() const;

  private:
    void Tally(const TTableEntry* entry, int sign);

    int form_;
    TTable stored_;
    bool extended_;
    bool hasStates_;
    int count_;
    int present_;
    std::unordered_map<int, std::optional<TTableEntry>> edits_;  ///< none: the entry has gone
    std::vector<TTransProgress> progress_;                       ///< a language each
};

}  // namespace tml

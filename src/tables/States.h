#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tables/Table.h"

namespace tml {

/// What is known of a translation: empty, or equal to the base text for no known reason; in doubt since the
/// base text has changed, or has changed in case, punctuation, blanks or accelerator only; or none of these.
enum class TTextState { Missing, Stale, Touched, Done };

/// "missing", "stale", "touched", "done".
std::string_view NameOf(TTextState state);

/// The state of the entry's translation in the language at a place (1-based, 2 for the first behind the base
/// language).
TTextState StateOf(const TTableEntry& entry, int place);

/// True when two texts are the same but for letter case, punctuation, blanks and accelerators.
bool DifferInLooksOnly(std::string_view left, std::string_view right);

/// The records of a component's property "States": the exceptions among its translations' states, of all
/// tables.
class TStateRecords {
  public:
    TStateRecords() = default;
    /// Lines as a component with this delimiter stores them.
    TStateRecords(TStringList lines, std::string_view delimiter);

    /// Gives the values of the table their marks.
    void Mark(TTable& table) const;
    /// Takes the records of the table from its values; those of other tables stay.
    void Take(const TTable& table);
    TStringList Lines() const;

  private:
    struct TRecord {
        std::string Table;
        std::string Key;
        int Place = 0;  ///< 0 for a line that is no record
        TTableValue Value;
        std::string Line;
    };
    std::string LineOf(const TTable& table, const TTableEntry& entry, std::size_t index) const;

    std::string delimiter_;
    std::vector<TRecord> records_;
};

}  // namespace tml

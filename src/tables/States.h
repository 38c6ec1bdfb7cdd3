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

/// A mark as it is stored: "same", "stale", "touched", "" for none; None for any other text.
std::string_view NameOf(TValueMark mark);
TValueMark ValueMarkOf(std::string_view name);

/// True for a translation that was made for another base text.
bool IsInDoubt(const TTableValue& value);

/// True for a text of its own: not empty, and not equal to the base text for no known reason.
bool IsTranslation(const TTableValue& value, const std::string& base);

/// A translation when its base text becomes another one: what equals the former base text for no known reason
/// follows it, any other is in doubt until the base text is again what had been translated. Settings, which
/// have no states, only follow.
TTableValue WithNewBase(TTableValue value, const std::string& former, const std::string& base,
                        bool hasStates);

/// True when two texts are the same but for letter case, punctuation, blanks and accelerators.
bool DifferInLooksOnly(std::string_view left, std::string_view right);

/// The records of a component's property "States": the exceptions among its translations' states, of all
/// tables.
class TStateRecords {
  public:
    TStateRecords() = default;
    /// Lines as a component with this delimiter stores them.
    TStateRecords(const TStringList& lines, std::string_view delimiter);

    /// Gives the values of the table their marks.
    void Mark(TTable& table) const;
    /// Takes the records of the table from its values; those of other tables stay.
    void Take(const TTable& table);
    /// Moves those of a table along with the languages; former as in MovedValues.
    void Move(TStringsType type, const std::vector<int>& former);
    TStringList Lines() const;

  private:
    struct TRecord {
        std::string Table;
        std::string Key;
        int Place = 0;  ///< 0 for a line that is no record
        TTableValue Value;
        std::string Line;
    };
    std::string LineOf(const TRecord& record) const;

    std::string delimiter_;
    std::vector<TRecord> records_;
};

}  // namespace tml

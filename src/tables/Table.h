#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Stringlist.h"
#include "tables/Tablekinds.h"

namespace tml {

/// What is on record of a translation: nothing, equal to the base text on purpose, or made for another base
/// text.
enum class TValueMark : std::uint8_t { None, Same, Stale, Touched };

/// A text in one language, and what is known of its state.
struct TTableValue {
    std::string Text;
    TValueMark Mark = TValueMark::None;
    std::string Former = {};  ///< the base text that had been translated, where the mark is Stale or Touched

    bool operator==(const TTableValue&) const = default;
};

struct TTableEntry {
    std::string Key;
    /// One a language, the base language's first; an odd entry has fewer or more.
    std::vector<TTableValue> Values;

    /// The text in the base language.
    const std::string& Base() const;

    bool operator==(const TTableEntry&) const = default;
};

/// The values of an entry moved along with their languages. former holds, for each language from now on, the
/// place (1-based) that it had, 0 for a new one, which begins with the base text or (beginEmpty) without a
/// text. A language that becomes the base language takes the former base text where it has none, and has no
/// state from then on.
std::vector<TTableValue> MovedValues(const std::vector<TTableValue>& values, const std::vector<int>& former,
                                     bool beginEmpty = false);

/// A translation table as a value: entries in a stable order, found by key in constant time. An entry that
/// nobody changes is written back byte for byte, odd ones (no value, more values than languages, a key that
/// stands twice) included.
class TTable {
  public:
    explicit TTable(TStringsType type) : type_(type) {}
    /// Reads the lines of a component whose fields are separated by the delimiter (one character, UTF-8).
    TTable(TStringsType type, TStringList lines, std::string_view delimiter);

    /// The lines as a component with this delimiter stores them.
    TStringList Lines(std::string_view delimiter) const;

    TStringsType Type() const { return type_; }
    const std::vector<TTableEntry>& Entries() const { return entries_; }
    /// The same for good.
    std::vector<TTableEntry> TakeEntries() && { return std::move(entries_); }
    /// Index of the first entry with the key, -1 without it. IDs of "Strings" are compared without case.
    int Find(std::string_view key) const;

    /// Appends an entry with the text in each of so many languages; false where the key is there already.
    bool Add(const std::string& key, const std::string& text, int languages);
    /// Gives each entry the key that newKey makes of its own.
    void Rename(const std::function<std::string(const std::string& key)>& newKey);
    /// The same where the entry's index matters; a key that is there already makes two.
    void Rekey(const std::function<std::string(int index, const std::string& key)>& newKey);
    /// Gives a value (place 1-based, added where the entry has none) another text; an equal one changes
    /// nothing. What was on record of the former text goes.
    void SetText(int index, int place, const std::string& text);
    /// Puts on record what is known of a value; nothing for a place that the entry has not.
    void SetMark(int index, int place, TValueMark mark, const std::string& former = {});
    /// Gives an entry other values, with what is known of them.
    void SetValues(int index, const std::vector<TTableValue>& values);
    /// Appends an entry as it is.
    void Append(TTableEntry entry);
    /// Empties every value but those of the base language.
    void ClearTranslations();
    /// Removes the entries with a flag.
    void Remove(const std::vector<bool>& gone);
    /// Moves the values along with their languages, see MovedValues; what a new language is called in Locales
    /// is nobody's.
    void MoveLanguages(const std::vector<int>& former);

  private:
    using TIndex = std::unordered_map<std::string, int>;

    std::string IndexKey(std::string_view key) const;
    /// Made on first use: most tables are read and written as a whole.
    TIndex& Index() const;
    /// From now on the entry is written anew.
    TTableEntry& Touch(int index);

    TStringsType type_;
    std::string delimiter_;  ///< of the stored lines
    std::vector<TTableEntry> entries_;
    TStringList stored_;  ///< the line of each entry, "" where it is to be written anew
    mutable std::optional<TIndex> index_;
};

}  // namespace tml

#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "tables/Dictionary.h"
#include "tables/Table.h"

namespace tml {

/// A translation and how often it stands in the tables.
struct TLearnedChoice {
    std::string Text;
    int Count = 0;
};

/// A text that has more than one translation, those of the tables and the dictionary's together.
struct TLearnConflict {
    std::string Language;
    std::string Base;
    std::string Taken;                    ///< what the dictionary has now
    std::vector<TLearnedChoice> Choices;  ///< of the tables, most frequent first
};

/// What a dictionary has learned.
struct TLearned {
    int Added = 0;                          ///< translations
    int Replaced = 0;                       ///< translations that were others
    int Known = 0;                          ///< translations that it had
    int Entries = 0;                        ///< new ones, each with one or more of the translations
    std::vector<TLearnConflict> Conflicts;  ///< those of the most frequent texts first
};

/// Gathers the translations of tables for a dictionary.
class TDictionaryLearning {
  public:
    /// Takes the translations at a place (2 or more) that are done. The languages' names are the
    /// dictionary's.
    void Take(const std::vector<TTable>& tables, int place, const std::string& baseLanguage,
              const std::string& language);

    /// Adds what the dictionary lacks; of several translations the most frequent one, of equally frequent
    /// ones the one that came first. A differing one of the dictionary stays unless replaces.
    TLearned Into(TDictionary& dictionary, bool replaces) const;

  private:
    struct TPair {
        std::string BaseLanguage, Language, Base;
        std::vector<TLearnedChoice> Choices;
    };

    std::vector<TPair> pairs_;  ///< in the order of their first use
    std::unordered_map<std::string, std::size_t> index_;
};

}  // namespace tml

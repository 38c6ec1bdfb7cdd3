#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Stringlist.h"
#include "core/Context.h"
#include "tables/Table.h"

namespace tml {

/// What is looked for in translation tables.
struct TPhraseOptions {
    std::string Text;
    std::string Replacement;
    bool CaseSensitive = false;
    bool Whole = false;        ///< a field that is the text, not one that contains it
    bool Identifiers = false;  ///< the keys of the entries, too
    bool Prompt = false;       ///< asks before each replacement
};

class TPhrase {
  public:
    explicit TPhrase(TPhraseOptions options);

    const TPhraseOptions& Options() const { return options_; }
    /// The place of the first hit in a field (decoded); none without one.
    std::optional<std::size_t> Find(std::string_view field) const;
    /// The field with its first hit replaced; one without a hit as it is.
    std::string Replaced(const std::string& field) const;

  private:
    TPhraseOptions options_;
    std::string compared_;
};

/// A field of a table with the phrase in it.
struct TPhraseHit {
    TStringsType Table = TStringsType::stCaptions;
    int Entry = 0;  ///< 0-based
    int Field = 1;  ///< 1 is the key, 2 the base language
    std::string Key;
    std::string Text;

    /// "Captions"
    std::string_view Property() const { return KindOf(Table).Name.substr(2); }
    /// "Identifier", or the name of the language.
    std::string Location(const TStringList& languages) const;
};

/// The hits in tables of so many languages, table by table and entry by entry.
std::vector<TPhraseHit> FindPhrase(const std::vector<TTable>& tables, int languages, const TPhrase& phrase);

/// What is found in a form, or is to be replaced there.
struct TFormPhrases {
    std::string FormName;
    std::string FileName;  ///< of the unit
    TStringList Languages;
    std::vector<TPhraseHit> Hits;
};

/// The hits in the forms of rows; a unit that is closed is opened meanwhile. Forms without a component, and
/// those that cannot be opened, give none.
std::vector<TFormPhrases> FindPhrase(TContext& context, const std::vector<TFormRow*>& rows,
                                     const TPhrase& phrase);

/// Changes the ID of a string of a form in all that asks for it.
using TChangePhraseID =
    std::function<void(const std::string& formName, const std::string& oldID, const std::string& newID)>;

/// Replaces the phrase in these hits, as one step of undo; a form that fails goes back by itself.
/// Translations of a base text that changes are in doubt unless they change, too; what the form shows
/// follows. IDs of "Strings" go to changeID, behind the texts of their form. Units that change stay open.
/// Gives the hits that were left: keys of other tables, which name components, and IDs that cannot be.
std::vector<TFormPhrases> ReplacePhrase(TContext& context, const std::vector<TFormPhrases>& forms,
                                        const TPhrase& phrase, const TChangePhraseID& changeID);

}  // namespace tml

#pragma once

#include <string>
#include <vector>

#include "tables/Langtexts.h"

namespace tml {

/// How texts come from a file into a form. Loading replaces: languages and translations that the file has not
/// are dropped, but no entry and no base text. Merging drops nothing.
enum class TTransferKind { Load, Merge };

/// What a file has done to the texts of a form. The lists are lines for the person.
struct TTransferReport {
    int Taken = 0;            ///< texts that are others now
    int Kept = 0;             ///< translations for which the file has no text
    int InDoubt = 0;          ///< texts taken that translate another base text
    TStringList Added;        ///< languages and IDs
    TStringList Overwritten;  ///< translations, with what they were
    TStringList Dropped;
    TStringList Unknown;  ///< what the file has and the form has not
    TStringList Notes;
};

/// Where the languages of a form and of a file meet. The base languages, the first ones, always do.
struct TLanguageMeeting {
    TStringList Names;        ///< of the form from now on
    std::vector<int> Former;  ///< where each was (1-based), 0 for a new one
    std::vector<int> Places;  ///< of each language of the file among the names, 0 where it is not taken
};

/// only: the one language (without regard to case) that is taken, "" for all.
TLanguageMeeting MeetLanguages(const TStringList& present, const TStringList& file, TTransferKind kind,
                               const std::string& only = {});

/// True where the base language of the one is another language of the other, so that they cannot meet.
bool AreBasesCrossed(const TStringList& present, const TStringList& file);

struct TTransfer {
    TTransferKind Kind = TTransferKind::Load;
    std::vector<int> Places;  ///< see TLanguageMeeting
};

/// Brings the texts of a file into those of a form, whose values stand in its languages already. Keys are
/// found without regard to case, one that stands twice by its turn. Base texts stay; a translation that comes
/// with another base text is in doubt. An empty text replaces nothing, in a merge neither does one that
/// translates nothing. IDs that the form has not are added.
void TransferTexts(TLangTexts& form, const TLangTexts& file, const TTransfer& transfer,
                   TTransferReport& report);

/// The translations in the language at a place (1-based).
int CountTranslations(const TLangTexts& texts, int place);

}  // namespace tml

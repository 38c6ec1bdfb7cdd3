#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/Context.h"

namespace tml {

/// How a component is to be configured.
struct TLangSetUp {
    int NumLang = 0;
    std::string ComponentName;                     ///< "" for the first of the class
    std::string ComponentClass = "TmlCustomLang";  ///< this class or one that derives from it
    bool InsertIfMissing = false;
    std::string LangNamesText;  ///< see SplitLangNames; "" keeps the names
    /// Former names of the languages, one a name and "" for none: a component that knows a language by its
    /// former name knows it.
    TStringList FormerNames = {};
    /// Where the languages of this one component come from (1-based places, 0 for a new one); empty where the
    /// names tell.
    std::vector<int> Places = {};
};

/// Where the languages of a component come from when it is so configured.
std::vector<int> PlacesOf(ILanguages& languages, const TLangSetUp& setUp);

/// Configures a component of the row's form, a localization component or a dispatcher. Texts go with their
/// languages, and the active language with its texts; but a form that shows its base language goes on showing
/// what is the base language then, as does one whose language goes, and its properties follow.
void SetUpComponent(TContext& context, TFormRow& row, const std::shared_ptr<IOTAComponent>& component,
                    const TLangSetUp& setUp);
/// The forms that inherit the component of the row's form, and its languages, follow when these move: called
/// before that and behind it. Gives, behind it, a line for each form of which translations go with their
/// languages.
TStringList MoveHeirs(TContext& context, const TFormRow& row, const TLanguageMoves& moves, TMovePhase phase);
/// The form of the component shows its base language, as do those that inherit the languages: before texts of
/// the active language go. What is active stays so.
void ShowBaseLanguage(TContext& context, const TFormRow& row, TmlCustomLang& lang);
/// The components of the project that are linked to the dispatcher follow, column by column; their rows, too.
void SetUpDispatcher(TContext& context, TmlLangDispatcher& dispatcher, const TLangSetUp& setUp);

}  // namespace tml

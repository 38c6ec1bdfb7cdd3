#pragma once

#include <string>
#include <vector>

#include "cli/Session.h"

namespace tml {

/// The forms of a project that a command works on.
struct TFormOptions {
    std::string Project;
    std::vector<std::string> Forms;
};

/// Adds the arguments PROJECT and --form.
CLI::App* AddFormOptions(CLI::App* command, TFormOptions& options);

/// Does the work on the localization component of each form, which is open meanwhile; a form without one that
/// was not asked for by its name is passed over. A form that fails does not keep the others from their turn.
void ForEachTmlLang(TSession& session, const TFormOptions& options,
                    const std::function<void(TFormRow&, TmlCustomLang&)>& work);

/// The same where the work changes the forms: what is done is one step, what fails goes back by itself, and
/// all is written in the end.
void ChangeEachTmlLang(TSession& session, const TFormOptions& options, const std::string& title,
                       const std::function<void(TFormRow&, TmlCustomLang&)>& work);

/// Of the form's language of this name, 1-based. EBadInput where it has none.
int PlaceOfLanguage(TmlCustomLang& lang, const TFormRow& row, const std::string& language);

}  // namespace tml

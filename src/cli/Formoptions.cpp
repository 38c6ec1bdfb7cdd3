#include "cli/Formoptions.h"

#include "base/Errors.h"
#include "core/Dispatchers.h"
#include "core/Formfamilies.h"
#include "core/Insertion.h"
#include "core/Modules.h"

namespace tml {

CLI::App* AddFormOptions(CLI::App* command, TFormOptions& options) {
    command->add_option("PROJECT", options.Project, "A project file")->required();
    command->add_option("--form", options.Forms, "Only this form; may be repeated")->allow_extra_args(false);
    return command;
}

namespace {

/// EBadInput for a form that was asked for by its name and has none.
bool HasTmlLang(TSession& session, const TFormOptions& options, const TFormRow& row) {
    if (!TestForCorrectForm(session.Context(), row)) return false;
    if (GetmlLang(session.Context(), row.FormName) != nullptr) return true;
    if (options.Forms.empty()) return false;
    throw EBadInput(row.FileName, 0, "the form has no localization component",
                    "\"tmllang insert\" puts one on it");
}

}  // namespace

void ForEachTmlLang(TSession& session, const TFormOptions& options,
                    const std::function<void(TFormRow&, TmlCustomLang&)>& work) {
    session.ForEach(session.Rows(options.Forms), [&](TFormRow& row) {
        if (options.Forms.empty() && !row.HasComponent()) return session.ExpectReadable(row);
        const TModuleLease lease(session.Context(), row.FileName);
        if (HasTmlLang(session, options, row)) work(row, *GetmlLang(session.Context(), row.FormName));
    });
}

void ChangeEachTmlLang(TSession& session, const TFormOptions& options, const std::string& title,
                       const std::function<void(TFormRow&, TmlCustomLang&)>& work) {
    const auto scope = session.Modules().BeginCommand(title);
    session.ForEach(AncestorsFirst(session.Rows(options.Forms)), [&](TFormRow& row) {
        if (options.Forms.empty() && !row.HasComponent()) return session.ExpectReadable(row);
        const auto one = session.Modules().BeginCommand(title);
        TModuleLease lease(session.Context(), row.FileName);
        if (!HasTmlLang(session, options, row)) return;
        work(row, *GetmlLang(session.Context(), row.FormName));
        lease.Save();
        one->Commit();
    });
    session.Ide().SaveAll();
    scope->Commit();
}

int PlaceOfLanguage(TmlCustomLang& lang, const TFormRow& row, const std::string& language) {
    const TStringList names = LanguagesInForce(lang)->GetLangNames();
    const int index = names.IndexOf(language);
    if (index >= 0) return index + 1;
    throw EBadInput(row.FileName, 0, "the form has no language " + language, "It has " + names.CommaText());
}

}  // namespace tml

#include "translations/Formupdate.h"

#include <exception>
#include <functional>
#include <vector>

#include "base/Errors.h"
#include "base/Format.h"
#include "core/Modules.h"

namespace tml {
namespace {

constexpr const char* kAskClear =
    "This will clear all translation information in selected form(s)! Continue?";

std::vector<TFormRow*> SelectedTranslated(TContext& context) {
    std::vector<TFormRow*> rows;
    for (const auto& row : context.Rows.FormNames.Items())
        if (row->Selected && row->HasComponent()) rows.push_back(row.get());
    return rows;
}

/// Each form is a scope of its own: one that fails goes back by itself, those before it stay done, and the
/// command ends with its error.
void ForEachSelected(TContext& context, const std::string& title,
                     const std::function<void(TFormRow&)>& work) {
    TOpenedMeanwhile opened(context);
    const auto all = BeginCommand(context, title);
    std::exception_ptr error;
    for (TFormRow* row : SelectedTranslated(context)) {
        const auto one = BeginCommand(context, title);
        try {
            work(*row);
            one->Commit();
        } catch (const EmlLangSilent&) {
            // A form that cannot be opened is passed over.
        } catch (...) {
            error = std::current_exception();
            break;
        }
    }
    opened.Save();
    all->Commit();
    if (error) std::rethrow_exception(error);
}

/// Does the work on the localization component of a row's form; its unit is saved and closed again unless it
/// was open. Nothing for a form without a component, and where the IDE has no module of the form (an error
/// message).
void ChangeTmlLang(TContext& context, TFormRow& row, const std::function<void(TmlCustomLang&)>& work) {
    TModuleLease lease(context, row.FileName);
    if (!TestForCorrectForm(context, row)) {
        // A file that was opened for this is left open, on purpose.
        lease.Keep();
        return;
    }
    const auto lang = FindCustomLang(*context.Host.Runtime, *GetFormEditor(context, row.FormName));
    if (lang == nullptr) return;
    work(*lang);
    MarkModifiedForm(context, row.FormName);
    lease.Save();
}

}  // namespace

void Updatetranslation1Click(TContext& context) {
    std::string notes;
    ForEachSelected(context, "Update Translations", [&](TFormRow& row) {
        ChangeTmlLang(context, row, [&](TmlCustomLang& lang) {
            for (const std::string& note : lang.BuildList())
                notes += Format("%s: %s\r\n", row.FormName, note);
        });
    });
    if (!notes.empty()) context.Dialogs().MessageDlg(notes, TMsgDlgType::mtInformation, {mrOk});
}

void ClearTranslations1Click(TContext& context) {
    if (context.Dialogs().MessageDlg(kAskClear, TMsgDlgType::mtWarning, {mrYes, mrNo}) != mrYes) return;
    ForEachSelected(context, "Clear Translations", [&](TFormRow& row) {
        ChangeTmlLang(context, row, [](TmlCustomLang& lang) { lang.ClearTranslations(); });
    });
}

}  // namespace tml

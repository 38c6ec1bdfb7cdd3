#include "translations/Formupdate.h"

#include "base/Format.h"
#include "core/Formfamilies.h"
#include "core/Langsetup.h"
#include "translations/Formseries.h"

namespace tml {
namespace {

constexpr const char* kAskClear =
    "This will clear all translation information in selected form(s)! Continue?";

/// Of the project's forms, whatever page is in front; what an ancestor gets reaches its descendants.
std::vector<TFormRow*> SelectedTranslated(TContext& context) {
    std::vector<TFormRow*> rows;
    for (const auto& row : context.Rows.FormNames.Items())
        if (row->Selected && row->HasComponent()) rows.push_back(row.get());
    return AncestorsFirst(rows);
}

void ChangeSelected(TContext& context, const std::string& title,
                    const std::function<void(TFormRow&, TmlCustomLang&)>& work) {
    const auto error = ForEachForm(context, title, SelectedTranslated(context), [&](TFormRow& row) {
        WithTmlLang(context, row, TFormUse::Changes, [&](TmlCustomLang& lang) { work(row, lang); });
    });
    if (error != nullptr) std::rethrow_exception(error);
}

}  // namespace

void Updatetranslation1Click(TContext& context) {
    std::string notes;
    ChangeSelected(context, "Update Translations", [&](TFormRow& row, TmlCustomLang& lang) {
        for (const std::string& note : lang.BuildList())
            notes += Format("%s: %s\r\n", row.FormName, note);
    });
    if (!notes.empty()) context.Dialogs().MessageDlg(notes, TMsgDlgType::mtInformation, {mrOk});
}

void ClearTranslations1Click(TContext& context) {
    if (context.Dialogs().MessageDlg(kAskClear, TMsgDlgType::mtWarning, {mrYes, mrNo}) != mrYes) return;
    ChangeSelected(context, "Clear Translations", [&](TFormRow& row, TmlCustomLang& lang) {
        ShowBaseLanguage(context, row, lang);
        lang.ClearTranslations();
    });
}

}  // namespace tml

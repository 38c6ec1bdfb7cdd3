#include "translations/Formtranslate.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Format.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "ids/Transeditor.h"
#include "translations/Formseries.h"

namespace tml {
namespace {

constexpr const char* kOpening = "Opening forms...";

/// A form in the editor. Its unit is as open as it was when this goes.
struct TTranslatedForm {
    std::string Name;
    std::unique_ptr<TModuleLease> Lease;
    std::shared_ptr<TmlCustomLang> Lang;  ///< nullptr where the form can have none
    bool IsChanged = false;
};

/// Without its texts there would be nothing to translate.
void InsertWithTexts(TContext& context, TFormRow& row) {
    const auto scope = BeginCommand(context, "Translate");
    InsertTmlLang(context, row);
    if (const auto lang = GetmlLang(context, row)) {
        lang->BuildList();
        MarkModifiedForm(context, row.FormName);
    }
    scope->Commit();
}

TTranslatedForm ReadForm(TContext& context, TFormRow& row, std::unique_ptr<TModuleLease> lease) {
    TTranslatedForm form{row.FormName, std::move(lease), nullptr, !row.HasComponent()};
    // Where the person is asked or told something.
    if (!row.HasComponent() || GetFormEditor(context, row.FormName) == nullptr)
        context.Dialogs().HideProgress();
    if (!TestForCorrectForm(context, row)) {
        // A file that was opened for this is left open, on purpose.
        form.Lease->Keep();
        return form;
    }
    if (!row.HasComponent()) InsertWithTexts(context, row);
    form.Lang = GetmlLang(context, row);
    if (form.Lang == nullptr) {
        context.Dialogs().HideProgress();
        context.Dialogs().MessageDlg(Format("Form %s is not translated!", form.Name), TMsgDlgType::mtError,
                                     {mrOk});
    }
    return form;
}

/// Of the rows that are selected; false where the person stops it on the way.
bool OpenForms(TContext& context, TOpenedMeanwhile& opened, std::vector<TTranslatedForm>& forms) {
    const std::vector<TFormRow*> rows = SelectedRows(context);
    std::vector<std::unique_ptr<TModuleLease>> leases;
    for (TFormRow* const row : rows) {
        const auto done = static_cast<int>(leases.size());
        if (!context.Dialogs().ShowProgress(kOpening, done, static_cast<int>(rows.size()))) return false;
        leases.push_back(std::make_unique<TModuleLease>(context, row->FileName, opened));
    }
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (TTranslatedForm form = ReadForm(context, *rows[i], std::move(leases[i])); form.Lang != nullptr)
            forms.push_back(std::move(form));
    return true;
}

std::vector<TmlCustomLang*> EditForms(TContext& context, const std::vector<TTranslatedForm>& forms,
                                      const TChangeStrID& onChangeStrID) {
    std::vector<TmlCustomLang*> langs;
    langs.reserve(forms.size());
    for (const TTranslatedForm& form : forms)
        langs.push_back(form.Lang.get());
    return context.Host.Runtime->TransEditorForms(langs, {.IsLast = true}, onChangeStrID);
}

}  // namespace

void Translate1Click(TContext& context, const TChangeStrID& onChangeStrID) {
    // A unit that follows a renamed ID stays open, for it is the person's to save.
    TOpenedMeanwhile opened(context);
    // What reads the texts goes on telling how far it is: one form may have as many as a thousand.
    const TProgressEnd end(context.Dialogs());
    std::vector<TTranslatedForm> forms;
    if (!OpenForms(context, opened, forms) || forms.empty()) return;
    const TShownInSource shown(*context.Host.Runtime);
    const auto changed = EditForms(context, forms, onChangeStrID);
    TAllSteps steps;
    for (TTranslatedForm& form : forms) {
        const bool isEdited = std::find(changed.begin(), changed.end(), form.Lang.get()) != changed.end();
        if (isEdited) MarkModifiedForm(context, form.Name);
        if (shown.IsOf(form.Name)) form.Lease->Keep();
        if (isEdited || form.IsChanged) steps.Try([&form] { form.Lease->SaveOrKeep(); });
    }
    steps.Finish();
}

}  // namespace tml

#include "setup/Excludeforms.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "base/Errors.h"
#include "base/Format.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "setup/Exclude.h"
#include "translations/Formseries.h"

namespace tml {
namespace {

constexpr const char* kExcludeTitle = "Exclude from Translation";
constexpr const char* kNothingToExclude =
    "None of the selected forms has a localization component. \"Languages\" puts one on a form.";

/// Calls use with the localization component of a row's form, which is open meanwhile. False where the form
/// cannot be opened.
bool WithFormOpen(TContext& context, const std::string& file,
                  const std::function<void(IOTAFormEditor&)>& use) {
    const bool wasOpen = IsFileOpen(context, file);
    if (!OpenFile(context, file, false)) return false;
    const TModuleLease lease(context, file, wasOpen);
    const auto editor = GetFormEditorFromModule(GetModuleFromFileName(context, file));
    if (editor != nullptr) use(*editor);
    return editor != nullptr;
}

/// Of the selected rows those that can be read.
class TFormsToExclude {
  public:
    explicit TFormsToExclude(TContext& context) : context_(context) {
        const TProgressEnd end(context.Dialogs());
        const TOpenedMeanwhile opened(context);
        const std::vector<TFormRow*> rows = SelectedRows(context);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const bool goesOn =
                rows.size() < 2 || context.Dialogs().ShowProgress("Reading forms...", static_cast<int>(i),
                                                                  static_cast<int>(rows.size()));
            if (!goesOn) throw EmlLangSilent();
            if (rows[i]->HasComponent())
                Read(*rows[i]);
            else
                ++LeftOut;
        }
    }

    std::vector<TExclusionForm> Forms;
    std::vector<TFormRow*> Rows;  ///< of the forms
    std::string Failed;           ///< names with their reasons, one a line
    int LeftOut = 0;              ///< rows without a component

  private:
    void Read(TFormRow& row) {
        try {
            const bool isOpened = WithFormOpen(context_, row.FileName, [&](IOTAFormEditor& editor) {
                const auto lang = FindCustomLang(*context_.Host.Runtime, editor);
                if (lang == nullptr) return;
                Forms.push_back(ReadExclusionForm(*lang, row.FormName, row.FileName));
                Rows.push_back(&row);
            });
            if (!isOpened) Failed += Format("\r\n%s", row.FormName);
        } catch (const EBadInput& error) {
            Failed += Format("\r\n%s: %s", row.FormName, error.what());
        }
    }

    TContext& context_;
};

/// False where there is nothing to choose from.
bool TellWhatIsLeftOut(TContext& context, const TFormsToExclude& read) {
    if (!read.Failed.empty())
        context.Dialogs().MessageDlg("These forms cannot be opened and are left out:" + read.Failed,
                                     TMsgDlgType::mtWarning, {mrOk});
    else if (read.Forms.empty())
        context.Dialogs().MessageDlg(kNothingToExclude, TMsgDlgType::mtInformation, {mrOk});
    return !read.Forms.empty();
}

/// The form's lease; nothing where its component is gone, which the person has been told.
std::unique_ptr<TModuleLease> ChangeLists(TContext& context, TFormRow& row, TOpenedMeanwhile& opened,
                                          const TExclusionLists& lists) {
    const auto scope = BeginCommand(context, kExcludeTitle);
    auto lease = std::make_unique<TModuleLease>(context, row.FileName, opened);
    const auto editor = GetFormEditorFromModule(GetModuleFromFileName(context, row.FileName));
    const auto lang =
        TestForCorrectForm(context, row) ? FindCustomLang(*context.Host.Runtime, *editor) : nullptr;
    if (lang == nullptr) return nullptr;
    WriteExclusions(*lang, lists);
    MarkModifiedForm(context, row.FormName);
    scope->Commit();
    return lease;
}

/// The form is kept only when the failed save has been taken back, which closes what it opened.
void SaveOrKeep(TContext& context, TModuleLease& lease) {
    try {
        const auto scope = BeginCommand(context, kExcludeTitle);
        lease.Save();
        scope->Commit();
    } catch (...) {
        lease.Keep();
        throw;
    }
}

/// One step for all forms. They are saved one by one: one that cannot be stays open with what was chosen for
/// it, and the others are written.
void WriteExclusionLists(TContext& context, const TfrmExclude& window, const std::vector<TFormRow*>& rows) {
    const TProgressEnd end(context.Dialogs());
    TOpenedMeanwhile opened(context);
    std::vector<std::unique_ptr<TModuleLease>> changed;
    TAllSteps steps;
    const auto scope = BeginCommand(context, kExcludeTitle);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const TExclusionLists& lists = window.Lists(static_cast<int>(i));
        if (lists == window.Forms()[i].Lists) continue;
        if (!context.Dialogs().ShowProgress("Excluding...", static_cast<int>(i),
                                            static_cast<int>(rows.size())))
            throw EmlLangSilent();
        steps.Try([&] {
            if (auto lease = ChangeLists(context, *rows[i], opened, lists))
                changed.push_back(std::move(lease));
        });
    }
    scope->Commit();
    for (const auto& lease : changed)
        steps.Try([&] { SaveOrKeep(context, *lease); });
    changed.clear();
    steps.Finish();
}

}  // namespace

void Exclude1Click(TContext& context) {
    TFormsToExclude read(context);
    if (!TellWhatIsLeftOut(context, read)) return;
    TfrmExclude window(context.Host, std::move(read.Forms),
                       [&context](const TExclusionForm& form, const TfrmExclude::TUseForm& use) {
                           const TOpenedMeanwhile opened(context);
                           WithFormOpen(context, form.FileName, [&](IOTAFormEditor& editor) {
                               use(editor.GetRootComponent(), editor.GetFileName());
                           });
                       });
    window.LeftOut = read.LeftOut;
    if (context.Dialogs().ShowModal(window) == mrOk) WriteExclusionLists(context, window, read.Rows);
}

bool EditExclusions(const THost& host, TmlCustomLang& lang) {
    IOTAModuleServices& modules = *host.Services->GetModuleServices();
    const auto root = lang.GetComponent()->GetOwner();
    const auto module = modules.FindFormModule(root->GetName());
    TfrmExclude window(host, {ReadExclusionForm(lang, root->GetName(), module->GetFileName())},
                       [&](const TExclusionForm&, const TfrmExclude::TUseForm& use) {
                           use(root, module->GetFormEditor()->GetFileName());
                       });
    if (host.Dialogs->ShowModal(window) != mrOk || window.Lists(0) == window.Forms()[0].Lists) return false;
    const auto scope = modules.BeginCommand(kExcludeTitle);
    WriteExclusions(lang, window.Lists(0));
    scope->Commit();
    return true;
}

}  // namespace tml

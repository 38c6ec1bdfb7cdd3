#include "translations/Formseries.h"

#include "base/Errors.h"
#include "core/Modules.h"

namespace tml {
namespace {

/// What a form fails with, but for a form that cannot be opened: that one is passed over.
std::exception_ptr ErrorOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const EmlLangSilent&) {
        return nullptr;
    } catch (...) {
        return std::current_exception();
    }
    return nullptr;
}

void ShowProgressOf(TContext& context, const std::string& title, std::size_t row, std::size_t rows) {
    if (rows < 2) return;
    if (!context.Dialogs().ShowProgress(title + "...", static_cast<int>(row), static_cast<int>(rows)))
        throw EmlLangSilent();
}

}  // namespace

std::exception_ptr ForEachForm(TContext& context, const std::string& title,
                               const std::vector<TFormRow*>& rows, const std::function<void(TFormRow&)>& work,
                               const std::function<void()>& finish, TOnFailure onFailure) {
    const TProgressEnd end(context.Dialogs());
    TOpenedMeanwhile opened(context);
    const auto all = BeginCommand(context, title);
    std::exception_ptr error;
    const bool goesOn = onFailure == TOnFailure::GoOn;
    for (std::size_t i = 0; i < rows.size() && (goesOn || error == nullptr); ++i) {
        ShowProgressOf(context, title, i, rows.size());
        TFormRow& row = *rows[i];
        const bool wasOpen = IsFileOpen(context, row.FileName);
        const bool hadComponent = row.HasComponent();
        const auto one = BeginCommand(context, title);
        const auto failed = ErrorOf([&] {
            work(row);
            one->Commit();
        });
        if (error == nullptr) error = failed;
        // Its own unit is left open on purpose, but for one that was shown to take a component.
        if (!wasOpen && (hadComponent || !row.HasComponent())) opened.Leave(row.FileName);
    }
    if (finish) finish();
    opened.Save();
    all->Commit();
    return error;
}

void WithTmlLang(TContext& context, TFormRow& row, TFormUse use,
                 const std::function<void(TmlCustomLang&)>& work) {
    const bool wasOpen = IsFileOpen(context, row.FileName);
    OpenFile(context, row.FileName, false);
    TModuleLease lease(context, row.FileName, wasOpen);
    const auto editor = GetFormEditor(context, row.FormName);
    if (editor == nullptr) context.Dialogs().HideProgress();
    const auto lang = TestForCorrectForm(context, row)
                          ? FindCustomLang(*context.Host.Runtime, *editor, row.Component.ComponentName)
                          : nullptr;
    // A file that was opened for this is left open then, on purpose.
    if (lang == nullptr) return lease.Keep();
    work(*lang);
    if (use == TFormUse::Reads) return;
    MarkModifiedForm(context, row.FormName);
    lease.Save();
}

std::vector<TFormRow*> SelectedRows(TContext& context) {
    std::vector<TFormRow*> rows;
    for (const auto& row : context.Rows.Active().Items())
        if (row->Selected) rows.push_back(row.get());
    return rows;
}

}  // namespace tml

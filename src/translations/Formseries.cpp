#include "translations/Formseries.h"

#include <exception>

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

void ForEachForm(TContext& context, const std::string& title, const std::vector<TFormRow*>& rows,
                 const std::function<void(TFormRow&)>& work, const std::function<void()>& finish) {
    const TProgressEnd end(context.Dialogs());
    TOpenedMeanwhile opened(context);
    const auto all = BeginCommand(context, title);
    std::exception_ptr error;
    for (std::size_t i = 0; i < rows.size() && error == nullptr; ++i) {
        ShowProgressOf(context, title, i, rows.size());
        const auto one = BeginCommand(context, title);
        error = ErrorOf([&] {
            work(*rows[i]);
            one->Commit();
        });
    }
    if (finish) finish();
    opened.Save();
    all->Commit();
    if (error != nullptr) std::rethrow_exception(error);
}

void WithTmlLang(TContext& context, TFormRow& row, TFormUse use,
                 const std::function<void(TmlCustomLang&)>& work) {
    const bool wasOpen = IsFileOpen(context, row.FileName);
    OpenFile(context, row.FileName, false);
    TModuleLease lease(context, row.FileName, wasOpen);
    const auto editor = GetFormEditor(context, row.FormName);
    if (editor == nullptr) context.Dialogs().HideProgress();
    if (!TestForCorrectForm(context, row)) {
        // A file that was opened for this is left open, on purpose.
        lease.Keep();
        return;
    }
    const auto lang = FindCustomLang(*context.Host.Runtime, *editor);
    if (lang == nullptr) return;
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

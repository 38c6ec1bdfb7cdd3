#include "core/Notifiers.h"

#include <utility>

#include "base/Errors.h"
#include "core/Modules.h"

namespace tml {

TmlModuleNotifier::TmlModuleNotifier(TContext& context, TFormRows* list, const TFormRow* row,
                                     std::shared_ptr<IOTAModule> module)
    : context_(context),
      list_(list),
      rowId_(row == nullptr ? 0 : row->Id()),
      module_(std::move(module)),
      editor_(GetFormEditorFromModule(module_)) {}

std::shared_ptr<TmlModuleNotifier> TmlModuleNotifier::Create(TContext& context, TFormRows* list,
                                                             TFormRow* row,
                                                             std::shared_ptr<IOTAModule> module) {
    std::shared_ptr<TmlModuleNotifier> notifier(new TmlModuleNotifier(context, list, row, std::move(module)));
    if (notifier->editor_ == nullptr) throw EmlLangSilent();
    if (row != nullptr) row->Notifier = notifier;
    notifier->NotifierIndex = notifier->editor_->AddNotifier(notifier);
    return notifier;
}

void TmlModuleNotifier::Unregister() {
    if (IsRegistered() && editor_ != nullptr) editor_->RemoveNotifier(NotifierIndex);
    Destroyed();
}

void TmlModuleNotifier::Detach() {
    Unregister();
    TFormRows* list = std::exchange(list_, nullptr);
    TFormRow* row = list == nullptr ? nullptr : list->Find(rowId_);
    // The row may hold the last reference: nothing of the notifier is touched afterwards.
    if (row != nullptr) row->Notifier.reset();
}

std::string TmlModuleNotifier::FormFileName() const {
    return editor_ == nullptr ? std::string() : editor_->GetFileName();
}

void TmlModuleNotifier::Destroyed() {
    NotifierIndex = -1;
    editor_.reset();
    module_.reset();
}

void TmlModuleNotifier::ComponentRenamed(TComponentHandle handle, const std::string& oldName,
                                         const std::string& newName) {
    if (oldName.empty() || newName.empty()) return;
    TFormRow* row = list_ == nullptr ? nullptr : list_->Find(rowId_);
    // A notifier with a row follows the form's own name alone, on purpose: passing renames of other
    // components on is the business of the notifiers without one.
    if (row == nullptr) return PassRenameOn(handle, oldName, newName);
    if (row->FormName != oldName) return;
    list_->Rename(*row, newName);
    if (context_.OnRowsChanged) context_.OnRowsChanged();
}

void TmlModuleNotifier::PassRenameOn(TComponentHandle handle, const std::string& oldName,
                                     const std::string& newName) {
    if (!IsRegistered()) return;
    const auto lang = FindCustomLang(*context_.Host.Runtime, *editor_);
    if (lang == nullptr || lang->GetName() == newName) return;
    if (lang->GetComponent()->GetComponentHandle() == handle) return;
    lang->ComponentRenamed(oldName, newName);
}

void TmlAddInNotifier::FileNotification(TOTAFileNotification notifyCode, const std::string& fileName,
                                        bool& /*cancel*/) {
    Pass([notifyCode, fileName](IFileNotified& owner) { owner.FileNotified(notifyCode, fileName); });
}

void TmlAddInNotifier::FilesRestored(const std::vector<std::string>& fileNames) {
    Pass([fileNames](IFileNotified& owner) { owner.FilesRestored(fileNames); });
}

void TmlAddInNotifier::Pass(std::function<void(IFileNotified&)> notification) {
    gate_.Pass([self = shared_from_this(), notification = std::move(notification)] {
        if (self->owner_ == nullptr) return;
        try {
            notification(*self->owner_);
        } catch (const EmlLangSilent&) {
            // A unit without a form, for one: nobody needs to know.
        } catch (const std::exception& error) {
            // Whatever goes wrong here must not interrupt the IDE.
            if (self->owner_ != nullptr) self->owner_->FileNotificationFailed(error);
        }
    });
}

}  // namespace tml

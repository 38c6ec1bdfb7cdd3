#include "ide/Module.h"

#include "base/Files.h"
#include "base/Utf8.h"
#include "ide/Moduleservices.h"
#include "ide/Sourceeditor.h"

namespace tml {

std::string TModule::GetFormName() {
    return files_.Form ? files_.Form->Root().Name() : std::string();
}

std::shared_ptr<IOTASourceEditor> TModule::GetSourceEditor(int index) {
    const std::shared_ptr<TSourceBuffer>& buffer = index == 1 ? files_.Header : files_.Unit;
    if (index < 0 || index > 1 || !buffer) return nullptr;
    return MakeSourceEditor(buffer, [module = weak_from_this(), index] {
        if (const auto self = module.lock()) self->modules_.SetCurrent(self, index);
    });
}

std::vector<TDocument*> TModule::Documents() const {
    std::vector<TDocument*> documents;
    for (TDocument* document :
         std::initializer_list<TDocument*>{files_.Unit.get(), files_.Header.get(), files_.Form.get()})
        if (document != nullptr) documents.push_back(document);
    return documents;
}

TSourceBuffer* TModule::FindSource(const std::string& fileName) const {
    for (TSourceBuffer* buffer : {files_.Unit.get(), files_.Header.get()})
        if (buffer != nullptr && SameText(buffer->FileName(), fileName)) return buffer;
    return nullptr;
}

bool TModule::GetModified() {
    for (const TDocument* document : Documents())
        if (document->IsModified()) return true;
    return false;
}

void TModule::Save() {
    const auto command = modules_.Journal().BeginUnlessRunning("Save " + FileNameOf(GetFileName()));
    SaveDocuments();
    if (command) command->Commit();
}

void TModule::SaveDocuments() {
    if (!GetModified()) return;
    if (designer_)
        designer_->Notifiers().Tell([](IOTAFormNotifier& notifier) {
            notifier.BeforeSave();
            notifier.FormSaving();
        });
    for (TDocument* document : Documents())
        if (document->IsModified()) document->Save();
    if (designer_) designer_->Notifiers().Tell([](IOTAFormNotifier& notifier) { notifier.AfterSave(); });
}

void TModule::Close() {
    modules_.CloseModule(shared_from_this());
}

void TModule::CloseDocuments() {
    if (designer_) designer_->Destroyed();
    for (TDocument* document : Documents())
        document->Close();
}

}  // namespace tml

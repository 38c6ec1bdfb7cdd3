#include "host/Experthost.h"

#include "expert/Mllangexp.h"
#include "runtime/Runtime.h"

namespace tml {

TExpertHost::TExpertHost(IFileSystem& files, IRegistry& registry, IDialogs& dialogs,
                         std::unique_ptr<ICommonLibraryLoader> common, bool dockableForms)
    : files_(files),
      runtime_(MakeMlRuntime(&registry)),
      common_(std::move(common)),
      ide_(files, *runtime_, dockableForms),
      host_{&ide_, runtime_.get(), &registry, &dialogs, &files_, common_.get(), clock_.get()} {
    runtime_->Dialogs = &dialogs;
    runtime_->CommonLibrary = common_.get();
}

TExpertHost::~TExpertHost() {
    ide_.CloseProject();
    if (!package_.empty()) ide_.UnloadPackage(package_);
}

void TExpertHost::LoadExpert() {
    const TPackage package = MakePackage(host_, [this](TmlLangExpert& expert) { expert_ = &expert; });
    ide_.LoadPackage(package);
    package_ = package.Name;
}

TfrmmlLang* TExpertHost::ExpertWindow() const {
    return expert_ == nullptr ? nullptr : expert_->Window();
}

}  // namespace tml

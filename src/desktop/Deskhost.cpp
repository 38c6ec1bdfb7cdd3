#include "desktop/Deskhost.h"

#include "expert/Mllangexp.h"
#include "ide/Librarypath.h"
#include "ide/Registryfile.h"
#include "runtime/Runtime.h"

namespace tml {
TDeskHost::TDeskHost(const TDeskFolders& folders, IDialogs& dialogs)
    : files_(MakeDiskFileSystem()),
      runtime_(MakeMlRuntime()),
      registry_(std::make_unique<TRegistryFile>(*files_, JoinPath(folders.Settings, "settings"))),
      common_(MakeCommonLibraryLoader(CommonLibraryPath(*files_, folders.Program))),
      ide_(*files_, *runtime_),
      host_{&ide_, runtime_.get(), registry_.get(), &dialogs, files_.get(), common_.get()} {}

TDeskHost::~TDeskHost() {
    ide_.CloseProject();
    if (!package_.empty()) ide_.UnloadPackage(package_);
}

void TDeskHost::LoadExpert() {
    TPackage package = MakePackage(host_);
    package.Register = [this](IRegistration& registration) { expert_ = &ExpRegister(host_, registration); };
    ide_.LoadPackage(package);
    package_ = package.Name;
}

TfrmmlLang* TDeskHost::ExpertWindow() const {
    return expert_ == nullptr ? nullptr : expert_->Window();
}

}  // namespace tml

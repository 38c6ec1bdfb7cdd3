#include "core/Externalfiles.h"

namespace tml {

void TmlExternalFiles::SetFiles(const TStringList& list) {
    if (&list == &files_) return;
    files_ = list;
    ListChanged();
}

void TmlExternalFiles::SetProjectName(const std::string& name) {
    if (name == projectName_) return;
    projectName_ = name;
    SaveEntries();
}

void TmlExternalFiles::Add(const std::string& fileName) {
    files_.Add(fileName);
    ListChanged();
}

void TmlExternalFiles::Open(const std::string& projectName, const TStringList& list) {
    projectName_ = projectName;
    files_ = list;
}

void TmlExternalFiles::ListChanged() {
    SaveEntries();
    if (OnChange) OnChange();
}

void TmlExternalFiles::SaveEntries() {
    if (!files_.Empty()) Save();
}

}  // namespace tml

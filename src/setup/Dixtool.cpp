#include "setup/Dixtool.h"

#include "base/Errors.h"
#include "core/Modules.h"
#include "setup/Dictionaryform.h"
#include "tables/Dixfile.h"

namespace tml {
namespace {

ICommandFiles& CommandFilesOf(TContext& context) {
    IOTAModuleServices* const services = GetModuleServices(context);
    if (services == nullptr) throw EmlLangSilent();
    return services->GetFiles();
}

}  // namespace

TDictionary TDixTool::Load(const std::string& fileName) {
    ExpectDix(fileName);
    const auto bytes = CommandFilesOf(context_).ReadFile(fileName);
    // One that is made by then is somebody else's, too.
    read_[fileName] = bytes.value_or("");
    if (!bytes)
        throw EFileError(fileName, 0, "there is no such dictionary",
                         "Choose another one, or let a new one learn from the forms");
    return ReadDix(*bytes, fileName);
}

void TDixTool::Save(const std::string& fileName, const TDictionary& dictionary) {
    ExpectDix(fileName);
    std::string bytes = WriteDix(dictionary, fileName);
    const std::string folder = FolderOf(fileName);
    if (!folder.empty() && !context_.Host.Files->Stat(folder))
        throw EFileError(fileName, 0, "there is no folder " + folder, "Make it, or choose another one");
    ICommandFiles& files = CommandFilesOf(context_);
    const std::string present = files.ReadFile(fileName).value_or("");
    const auto read = read_.find(fileName);
    if (read != read_.end() && read->second != present)
        throw EFileError(fileName, 0, "somebody else has changed the dictionary since it was read",
                         "Save it under another name, or open it again");
    if (bytes != present) files.WriteFile(fileName, bytes);
    read_[fileName] = std::move(bytes);
}

void TDixTool::Show(const std::string& fileName) {
    TfrmDictionary window(context_, *this);
    window.Open(fileName);
    context_.Dialogs().ShowModal(window);
}

}  // namespace tml

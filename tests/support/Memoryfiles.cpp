#include "support/Memoryfiles.h"

#include <filesystem>

#include "base/Errors.h"

namespace tml {
namespace {

std::string Normal(const std::string& path) {
    std::string normal = std::filesystem::path(path).lexically_normal().generic_string();
    if (normal.size() > 1 && normal.back() == '/') normal.pop_back();
    return normal;
}

}  // namespace

bool TMemoryFileSystem::IsFolder(const std::string& path) const {
    const std::string prefix = path == "/" ? path : path + "/";
    const auto next = Files.lower_bound(prefix);
    return folders_.contains(path) || (next != Files.end() && next->first.starts_with(prefix));
}

void TMemoryFileSystem::ExpectFolderOf(const std::string& path) const {
    if (!IsFolder(FolderOf(path))) throw EFileError(path, 0, "cannot be written: no such folder");
}

std::optional<TFileInfo> TMemoryFileSystem::Stat(const std::string& path) {
    const std::string place = Resolve(path);
    const auto file = Files.find(place);
    if (file != Files.end()) return TFileInfo{false, ReadOnlyFiles.contains(place), file->second.size(), 0};
    if (IsFolder(place)) return TFileInfo{true, false, 0, 0};
    return std::nullopt;
}

std::string TMemoryFileSystem::Read(const std::string& path) {
    const auto file = Files.find(Resolve(path));
    if (file == Files.end()) throw EFileError(path, 0, "cannot be read: no such file");
    return file->second;
}

std::string TMemoryFileSystem::Resolve(const std::string& path) {
    const std::string place = Normal(path);
    const auto link = Links.find(place);
    return link == Links.end() ? place : Resolve(link->second);
}

std::vector<std::string> TMemoryFileSystem::List(const std::string& folder) {
    const std::string place = Resolve(folder);
    if (!IsFolder(place)) throw EFileError(folder, 0, "cannot be listed: no such folder");
    const std::string prefix = place == "/" ? place : place + "/";
    std::set<std::string> names;
    for (const auto& [path, bytes] : Files)
        if (path.starts_with(prefix))
            names.insert(path.substr(prefix.size(), path.find('/', prefix.size()) - prefix.size()));
    for (const auto& [path, target] : Links)
        if (FolderOf(path) == place) names.insert(FileNameOf(path));
    for (const std::string& path : folders_)
        if (FolderOf(path) == place) names.insert(FileNameOf(path));
    return {names.begin(), names.end()};
}

void TMemoryFileSystem::MakeFolder(const std::string& folder) {
    for (std::string path = Normal(folder); path.size() > 1; path = FolderOf(path))
        folders_.insert(path);
}

void TMemoryFileSystem::Stage(const std::string& path, std::string_view bytes, const std::string&) {
    ExpectFolderOf(Normal(path));
    Files[Normal(path)] = std::string(bytes);
}

void TMemoryFileSystem::Rename(const std::string& from, const std::string& to) {
    const auto file = Files.find(Normal(from));
    if (file == Files.end()) throw EFileError(from, 0, "cannot be renamed: no such file");
    ExpectFolderOf(Normal(to));
    std::string bytes = std::move(file->second);
    Files.erase(file);
    Files[Normal(to)] = std::move(bytes);
}

void TMemoryFileSystem::Remove(const std::string& path) {
    Files.erase(Normal(path));
    folders_.erase(Normal(path));
}

void TMemoryFileSystem::Flush(const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        if (!Stat(path)) throw EFileError(path, 0, "cannot be flushed: no such file");
}

std::unique_ptr<IFileLock> TMemoryFileSystem::Lock(const std::string& path) {
    Files.try_emplace(Normal(path));
    return std::make_unique<IFileLock>();
}

}  // namespace tml

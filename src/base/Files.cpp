#include "base/Files.h"

#include "base/Errors.h"
#include "base/Utf8.h"

namespace tml {
namespace {

constexpr std::string_view kSeparators = "/\\";

std::vector<std::string> PathParts(std::string_view path) {
    std::vector<std::string> parts;
    while (!path.empty()) {
        const std::size_t end = path.find_first_of(kSeparators);
        const std::string_view part = path.substr(0, end);
        if (!part.empty() && part != ".") parts.emplace_back(part);
        if (end == std::string_view::npos) break;
        path.remove_prefix(end + 1);
    }
    return parts;
}

bool HasDrive(std::string_view path) {
    return path.size() > 1 && path[1] == ':';
}

/// The entry of the folder with this name: as written where it exists, else the only one that differs in
/// letter case alone.
std::optional<std::string> FindEntry(IFileSystem& files, const std::string& folder, const std::string& name) {
    std::string exact = JoinPath(folder, name);
    if (files.Stat(exact)) return exact;
    const std::string place = folder.empty() ? "." : folder;
    const auto info = files.Stat(place);
    if (!info || !info->IsFolder) return std::nullopt;
    std::optional<std::string> found;
    for (const std::string& entry : files.List(place)) {
        if (!SameText(entry, name)) continue;
        if (found) return std::nullopt;
        found = JoinPath(folder, entry);
    }
    return found;
}

}  // namespace

std::string FolderOf(std::string_view path) {
    const std::size_t last = path.find_last_of(kSeparators);
    if (last == std::string_view::npos) return {};
    return std::string(path.substr(0, last == 0 ? 1 : last));
}

std::string FileNameOf(std::string_view path) {
    const std::size_t last = path.find_last_of(kSeparators);
    return std::string(last == std::string_view::npos ? path : path.substr(last + 1));
}

std::string ExtensionOf(std::string_view path) {
    const std::string name = FileNameOf(path);
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot);
}

std::string WithExtension(std::string_view path, std::string_view extension) {
    const std::string old = ExtensionOf(path);
    return std::string(path.substr(0, path.size() - old.size())) + std::string(extension);
}

std::string JoinPath(std::string_view folder, std::string_view name) {
    if (folder.empty() || IsAbsolutePath(name)) return std::string(name);
    const bool separated = kSeparators.find(folder.back()) != std::string_view::npos;
    return std::string(folder) + (separated ? "" : "/") + std::string(name);
}

bool IsAbsolutePath(std::string_view path) {
    return (!path.empty() && kSeparators.find(path.front()) != std::string_view::npos) || HasDrive(path);
}

std::optional<std::string> FindFile(IFileSystem& files, const std::string& folder, std::string_view name) {
    std::string place = folder;
    if (IsAbsolutePath(name)) {
        place = HasDrive(name) ? std::string(name.substr(0, 2)) + "/" : "/";
        name.remove_prefix(HasDrive(name) ? 2 : 1);
    }
    for (const std::string& part : PathParts(name)) {
        if (part == "..") {
            place = JoinPath(place, part);
            continue;
        }
        const auto found = FindEntry(files, place, part);
        if (!found) return std::nullopt;
        place = *found;
    }
    return place;
}

void WriteFileSafely(IFileSystem& files, const std::string& path, std::string_view bytes) {
    const std::string target = files.Resolve(path);
    const std::string staged = JoinPath(FolderOf(target), "." + FileNameOf(target) + ".tml-new");
    files.Stage(staged, bytes, target);
    try {
        files.Rename(staged, target);
    } catch (const EFileError&) {
        files.Remove(staged);
        throw;
    }
}

}  // namespace tml

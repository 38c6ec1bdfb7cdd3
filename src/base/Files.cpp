#include "base/Files.h"

#include <algorithm>

#include "base/Errors.h"

namespace tml {
namespace {

constexpr std::string_view kSeparators = "/\\";

bool HasDrive(std::string_view path) {
    return path.size() > 1 && path[1] == ':';
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

std::string RelativeTo(const std::string& folder, const std::string& file) {
    const bool inside = !folder.empty() && file.compare(0, folder.size() + 1, folder + "/") == 0;
    return inside ? file.substr(folder.size() + 1) : file;
}

std::string WithOwnSeparators(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

void WriteFileSafely(IFileSystem& files, const std::string& path, std::string_view bytes) {
    const std::string target = files.Resolve(path);
    const auto info = files.Stat(target);
    if (info && info->ReadOnly)
        throw EFileError(target, 0, "the file is read-only", "Make it writable and save again");
    const std::string staged = JoinPath(FolderOf(target), "." + FileNameOf(target) + ".tml-new");
    files.Stage(staged, bytes, target);
    try {
        files.Flush({staged});
        files.Rename(staged, target);
        files.Flush({FolderOf(target)});
    } catch (const EFileError&) {
        files.Remove(staged);
        throw;
    }
}

}  // namespace tml

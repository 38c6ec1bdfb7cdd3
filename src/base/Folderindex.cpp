#include "base/Folderindex.h"

#include <algorithm>

#include "base/Utf8.h"

namespace tml {
namespace {

constexpr std::string_view kFormExtensions[] = {".dfm", ".xfm", ".lfm", ".fmx"};

/// Adds a relative or absolute path to a folder, part by part; next(folder, part) gives the new place or
/// none to stop.
template <typename Next>
std::optional<std::string> Walk(std::string place, std::string_view path, Next next) {
    if (IsAbsolutePath(path)) {
        const bool drive = path.size() > 1 && path[1] == ':';
        place = drive ? std::string(path.substr(0, 2)) + "/" : "/";
        path.remove_prefix(drive ? 2 : 1);
    }
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of("/\\"), path.size());
        const std::string part(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
        if (part.empty() || part == ".") continue;
        std::optional<std::string> found = part == ".." ? FolderOf(place) : next(place, part);
        if (!found) return std::nullopt;
        place = std::move(*found);
    }
    return place;
}

bool HasExtension(std::string_view path, std::string_view extension) {
    return SameText(ExtensionOf(path), extension);
}

}  // namespace

bool IsFormFile(std::string_view path) {
    return std::any_of(std::begin(kFormExtensions), std::end(kFormExtensions),
                       [&](std::string_view extension) { return HasExtension(path, extension); });
}

bool IsCppUnit(std::string_view path) {
    return HasExtension(path, ".cpp") || HasExtension(path, ".c");
}

std::string AbsolutePath(IFileSystem& files, const std::string& path) {
    const std::string start = IsAbsolutePath(path) ? std::string("/") : files.Resolve(".");
    return *Walk(start, path, [](const std::string& folder, const std::string& part) {
        return std::optional(JoinPath(folder, part));
    });
}

const TFolderIndex::TEntries& TFolderIndex::EntriesOf(const std::string& folder) {
    const auto [place, isNew] = folders_.try_emplace(folder);
    if (!isNew) return place->second;
    const auto info = files_.Stat(folder);
    if (info && info->IsFolder)
        for (std::string& name : files_.List(folder))
            place->second[UpperCase(name)].push_back(std::move(name));
    return place->second;
}

std::optional<std::string> TFolderIndex::FindEntry(const std::string& folder, const std::string& name) {
    const TEntries& entries = EntriesOf(folder);
    const auto found = entries.find(UpperCase(name));
    if (found == entries.end()) return std::nullopt;
    const std::vector<std::string>& names = found->second;
    if (std::find(names.begin(), names.end(), name) != names.end()) return JoinPath(folder, name);
    if (names.size() > 1) return std::nullopt;
    return JoinPath(folder, names.front());
}

std::optional<std::string> TFolderIndex::Find(const std::string& folder, std::string_view name) {
    bool isEntry = false;
    auto found = Walk(folder, name, [&](const std::string& place, const std::string& part) {
        isEntry = true;
        return FindEntry(place, part);
    });
    return isEntry ? std::move(found) : std::nullopt;
}

std::string TFolderIndex::FindBeside(const std::string& path,
                                     std::initializer_list<std::string_view> extensions) {
    for (const std::string_view extension : extensions)
        if (auto found = FindEntry(FolderOf(path), WithExtension(FileNameOf(path), extension))) return *found;
    return {};
}

std::string TFolderIndex::FormFileOf(const std::string& unitFile) {
    return FindBeside(unitFile,
                      {kFormExtensions[0], kFormExtensions[1], kFormExtensions[2], kFormExtensions[3]});
}

std::string TFolderIndex::HeaderFileOf(const std::string& unitFile) {
    return IsCppUnit(unitFile) ? FindBeside(unitFile, {".h", ".hpp", ".hh"}) : std::string();
}

std::string TFolderIndex::UnitFileOf(const std::string& path) {
    const bool isHeader = HasExtension(path, ".h") || HasExtension(path, ".hpp") || HasExtension(path, ".hh");
    if (!IsFormFile(path) && !isHeader) return path;
    const std::string unit =
        isHeader ? FindBeside(path, {".cpp", ".c"}) : FindBeside(path, {".pas", ".pp", ".cpp", ".c"});
    return unit.empty() ? path : unit;
}

}  // namespace tml

#include "cli/Scanpaths.h"

#include <algorithm>
#include <set>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "cli/Ignorefiles.h"

namespace tml {
namespace {

constexpr const char* kUnitExtensions[] = {".pas", ".pp", ".dpr", ".lpr", ".inc", ".cpp", ".c", ".h"};

bool IsUnitFile(const std::string& name) {
    const std::string extension = ExtensionOf(name);
    return std::any_of(std::begin(kUnitExtensions), std::end(kUnitExtensions),
                       [&](const char* known) { return SameText(extension, known); });
}

std::string UnitExtensions() {
    std::string text;
    for (const char* extension : kUnitExtensions)
        text += (text.empty() ? "" : ", ") + std::string(extension);
    return text;
}

/// Walks folders in order; a folder that links lead to twice is walked once.
class TFolderWalk {
  public:
    TFolderWalk(IFileSystem& files, const std::vector<std::string>& excluded, std::vector<std::string>& found)
        : files_(files), excluded_(excluded), found_(found) {}

    void Visit(const std::string& top) {
        top_ = top;
        rules_ = RulesAround(files_, files_.Resolve(top));
        Walk(top);
    }

  private:
    void Walk(const std::string& folder) {
        const std::string place = files_.Resolve(folder);
        if (!seen_.insert(place).second) return;
        const std::size_t count = rules_.Count();
        AddRulesOf(files_, place, rules_);
        std::vector<std::string> folders;
        for (const std::string& name : files_.List(folder))
            Take(folder, place, name, folders);
        for (const std::string& below : folders)
            Walk(below);
        rules_.CutTo(count);
    }

    void Take(const std::string& folder, const std::string& place, const std::string& name,
              std::vector<std::string>& folders) {
        if (name.starts_with(".")) return;
        const std::string path = JoinPath(folder, name);
        const auto info = files_.Stat(path);
        if (!info || IsExcluded(path, name) || rules_.Ignores(JoinPath(place, name), info->IsFolder)) return;
        if (info->IsFolder)
            folders.push_back(path);
        else if (IsUnitFile(name))
            found_.push_back(path);
    }

    bool IsExcluded(const std::string& path, const std::string& name) const {
        return std::any_of(excluded_.begin(), excluded_.end(), [&](const std::string& glob) {
            return MatchesGlob(glob, name) || MatchesGlob(glob, RelativeTo(top_, path));
        });
    }

    IFileSystem& files_;
    const std::vector<std::string>& excluded_;
    std::vector<std::string>& found_;
    std::string top_;
    TIgnoreRules rules_;
    std::set<std::string> seen_;
};

}  // namespace

std::vector<std::string> FindUnitFiles(IFileSystem& files, const std::vector<std::string>& paths,
                                       const std::vector<std::string>& excluded) {
    std::vector<std::string> found;
    TFolderWalk walk(files, excluded, found);
    for (const std::string& path : paths) {
        const auto info = files.Stat(path);
        if (!info) throw EFileError(path, 0, "is not there", "Check the name");
        if (info->IsFolder)
            walk.Visit(path);
        else if (IsUnitFile(path))
            found.push_back(path);
        else
            throw EBadInput(path, 0, "is no source of Object Pascal or C++",
                            "Name files with one of the extensions " + UnitExtensions());
    }
    return found;
}

bool IsBinary(const std::string& bytes) {
    const bool isUtf16 = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
    return !isUtf16 && bytes.find('\0') != std::string::npos;
}

}  // namespace tml

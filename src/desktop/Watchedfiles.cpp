#include "desktop/Watchedfiles.h"

#include "base/Errors.h"
#include "base/Format.h"

namespace tml {

TWatchedFiles::TWatchedFiles(IFileSystem& files, const std::vector<std::string>& fileNames) : files_(files) {
    for (const std::string& file : fileNames)
        known_.emplace_back(file, InfoOf(file));
}

std::optional<TFileInfo> TWatchedFiles::InfoOf(const std::string& file) const {
    try {
        return files_.Stat(file);
    } catch (const EFileError&) {
        return std::nullopt;
    }
}

std::string TWatchedFiles::Changed() const {
    constexpr int kMostNamed = 3;
    std::string names;
    int count = 0;
    for (const auto& [file, info] : known_) {
        if (InfoOf(file) == info) continue;
        if (++count <= kMostNamed) names += (names.empty() ? "" : ", ") + FileNameOf(file);
    }
    return count > kMostNamed ? Format("%s and %d more", names, count - kMostNamed) : names;
}

}  // namespace tml

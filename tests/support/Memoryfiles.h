#pragma once

#include <map>
#include <set>
#include <string>

#include "base/Files.h"

namespace tml {

/// A file system in memory, with letter case, symbolic links and read-only files. Paths are absolute.
class TMemoryFileSystem : public IFileSystem {
  public:
    /// What a test puts there and looks at: path and bytes of every file.
    std::map<std::string, std::string> Files;
    std::set<std::string> ReadOnlyFiles;
    /// Link path to target path.
    std::map<std::string, std::string> Links;

    std::optional<TFileInfo> Stat(const std::string& path) override;
    std::string Read(const std::string& path) override;
    std::string Resolve(const std::string& path) override;
    std::vector<std::string> List(const std::string& folder) override;
    void MakeFolder(const std::string& folder) override;
    void Stage(const std::string& path, std::string_view bytes, const std::string& modelPath) override;
    void Rename(const std::string& from, const std::string& to) override;
    void Remove(const std::string& path) override;
    void Flush(const std::vector<std::string>& paths) override;
    std::unique_ptr<IFileLock> Lock(const std::string& path) override;

  private:
    bool IsFolder(const std::string& path) const;
    void ExpectFolderOf(const std::string& path) const;

    std::set<std::string> folders_;
};

}  // namespace tml

#pragma once

#include <map>
#include <string>

#include "base/Files.h"

namespace tml {

/// Another file system, in which a folder that cannot be listed counts as empty: it shall not keep what lies
/// elsewhere from being found. The reason is kept for a message.
class TListableFiles : public IFileSystem {
  public:
    explicit TListableFiles(IFileSystem& files) : files_(files) {}

    /// Messages by folder, in the order of the folders.
    const std::map<std::string, std::string>& Refused() const { return refused_; }

    std::vector<std::string> List(const std::string& folder) override;

    std::optional<TFileInfo> Stat(const std::string& path) override { return files_.Stat(path); }
    std::string Read(const std::string& path) override { return files_.Read(path); }
    void ReadParts(const std::string& path, const TPassPart& pass) override { files_.ReadParts(path, pass); }
    std::string Resolve(const std::string& path) override { return files_.Resolve(path); }
    void MakeFolder(const std::string& folder) override { files_.MakeFolder(folder); }
    void Stage(const std::string& path, std::string_view bytes, const std::string& modelPath) override {
        files_.Stage(path, bytes, modelPath);
    }
    void Rename(const std::string& from, const std::string& to) override { files_.Rename(from, to); }
    void Remove(const std::string& path) override { files_.Remove(path); }
    void Flush(const std::vector<std::string>& paths) override { files_.Flush(paths); }
    std::unique_ptr<IFileLock> Lock(const std::string& path) override { return files_.Lock(path); }

  private:
    IFileSystem& files_;
    std::map<std::string, std::string> refused_;
};

}  // namespace tml

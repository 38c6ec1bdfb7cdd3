#pragma once

#include <memory>
#include <string>
#include <utility>

#include "base/Files.h"
#include "platform/Registry.h"

namespace tml {

/// The settings in one readable file (UTF-8). Every write locks the file, reads it anew and replaces it
/// safely; comments and everything that is not understood stay. A line that begins like a key or a value
/// and is broken counts as missing when reading and refuses every write with EBadInput.
class TRegistryFile : public IRegistry {
  public:
    /// The file need not exist; its folder is made by the first write.
    TRegistryFile(IFileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}

    std::unique_ptr<IRegistryReader> OpenForReading() override;
    std::optional<std::string> ReadString(const std::string& key, const std::string& name) override;
    std::optional<int> ReadInteger(const std::string& key, const std::string& name) override;
    std::optional<bool> ReadBool(const std::string& key, const std::string& name) override;
    void WriteString(const std::string& key, const std::string& name, const std::string& value) override;
    void WriteInteger(const std::string& key, const std::string& name, int value) override;
    void WriteBool(const std::string& key, const std::string& name, bool value) override;

  private:
    std::string Load();
    /// value: type and text as they stand in the file.
    void Write(const std::string& key, const std::string& name, const std::string& value);

    IFileSystem& files_;
    std::string path_;
};

}  // namespace tml

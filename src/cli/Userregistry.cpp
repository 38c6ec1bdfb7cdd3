#include "cli/Userregistry.h"

#include "host/Registryfile.h"

namespace tml {
namespace {

constexpr const char* kComponentValue = "DefaultComponent";

class TRunReader : public IRegistryReader {
  public:
    TRunReader(std::unique_ptr<IRegistryReader> stored, std::string className)
        : stored_(std::move(stored)), className_(std::move(className)) {}

    std::optional<std::string> ReadString(const std::string& key, const std::string& name) override {
        return name == kComponentValue ? className_ : stored_->ReadString(key, name);
    }
    std::optional<int> ReadInteger(const std::string& key, const std::string& name) override {
        return stored_->ReadInteger(key, name);
    }
    std::optional<bool> ReadBool(const std::string& key, const std::string& name) override {
        return stored_->ReadBool(key, name);
    }

  private:
    std::unique_ptr<IRegistryReader> stored_;
    std::string className_;
};

/// The user's settings with another default component for this run; the stored one stays.
class TRunRegistry : public TRegistryFile {
  public:
    TRunRegistry(IFileSystem& files, const std::string& path, std::string className)
        : TRegistryFile(files, path), className_(std::move(className)) {}

    std::unique_ptr<IRegistryReader> OpenForReading() override {
        return std::make_unique<TRunReader>(TRegistryFile::OpenForReading(), className_);
    }

  private:
    std::string className_;
};

}  // namespace

std::unique_ptr<IRegistry> OpenUserRegistry(const TProgram& program) {
    const std::string path = JoinPath(program.ConfigFolder, "settings");
    if (!program.ComponentClass.empty())
        return std::make_unique<TRunRegistry>(*program.Files, path, program.ComponentClass);
    return std::make_unique<TRegistryFile>(*program.Files, path);
}

}  // namespace tml

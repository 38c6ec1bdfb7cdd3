#include "cli/Userregistry.h"

#include "base/Errors.h"
#include "host/Registryfile.h"

namespace tml {
namespace {

constexpr const char* kComponentValue = "DefaultComponent";

class TRunReader : public IRegistryReader {
  public:
    /// stored is nullptr where there are no settings.
    TRunReader(std::unique_ptr<IRegistryReader> stored, std::string className)
        : stored_(std::move(stored)), className_(std::move(className)) {}

    std::optional<std::string> ReadString(const std::string& key, const std::string& name) override {
        if (name == kComponentValue && !className_.empty()) return className_;
        return stored_ == nullptr ? std::nullopt : stored_->ReadString(key, name);
    }
    std::optional<int> ReadInteger(const std::string& key, const std::string& name) override {
        return stored_ == nullptr ? std::nullopt : stored_->ReadInteger(key, name);
    }
    std::optional<bool> ReadBool(const std::string& key, const std::string& name) override {
        return stored_ == nullptr ? std::nullopt : stored_->ReadBool(key, name);
    }

  private:
    std::unique_ptr<IRegistryReader> stored_;
    std::string className_;
};

class TRunRegistry : public IRegistry {
  public:
    TRunRegistry(std::unique_ptr<IRegistry> stored, std::string className)
        : stored_(std::move(stored)), className_(std::move(className)) {}

    std::unique_ptr<IRegistryReader> OpenForReading() override {
        return std::make_unique<TRunReader>(stored_ == nullptr ? nullptr : stored_->OpenForReading(),
                                            className_);
    }
    std::optional<std::string> ReadString(const std::string& key, const std::string& name) override {
        return OpenForReading()->ReadString(key, name);
    }
    std::optional<int> ReadInteger(const std::string& key, const std::string& name) override {
        return OpenForReading()->ReadInteger(key, name);
    }
    std::optional<bool> ReadBool(const std::string& key, const std::string& name) override {
        return OpenForReading()->ReadBool(key, name);
    }
    void WriteString(const std::string&, const std::string&, const std::string&) override {}
    void WriteInteger(const std::string&, const std::string&, int) override {}
    void WriteBool(const std::string&, const std::string&, bool) override {}

  private:
    std::unique_ptr<IRegistry> stored_;
    std::string className_;
};

}  // namespace

std::unique_ptr<IRegistry> OpenUserRegistry(const TProgram& program) {
    if (program.ConfigFolder.empty())
        throw EBadInput("", 0, "there is no folder for settings: HOME is not set", "Say --config DIR");
    return std::make_unique<TRegistryFile>(*program.Files, JoinPath(program.ConfigFolder, "settings"));
}

std::unique_ptr<IRegistry> ReadUserRegistry(const TProgram& program) {
    std::unique_ptr<IRegistry> stored;
    if (!program.ConfigFolder.empty()) stored = OpenUserRegistry(program);
    return std::make_unique<TRunRegistry>(std::move(stored), program.ComponentClass);
}

}  // namespace tml

#include "cli/Userregistry.h"

#include "host/Registryfile.h"

namespace tml {
namespace {

constexpr const char* kComponentValue = "DefaultComponent";

/// The user's settings with another default component for this run; the stored one stays.
class TRunRegistry : public TRegistryFile {
  public:
    TRunRegistry(IFileSystem& files, const std::string& path, std::string className)
        : TRegistryFile(files, path), className_(std::move(className)) {}

    std::optional<std::string> ReadString(const std::string& key, const std::string& name) override {
        return name == kComponentValue ? className_ : TRegistryFile::ReadString(key, name);
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

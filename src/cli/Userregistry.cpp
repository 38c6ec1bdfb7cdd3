#include "cli/Userregistry.h"

#include "ide/Registryfile.h"

namespace tml {

std::unique_ptr<IRegistry> OpenUserRegistry(const TProgram& program) {
    return std::make_unique<TRegistryFile>(*program.Files, JoinPath(program.ConfigFolder, "settings"));
}

}  // namespace tml

#include "setup/Requiredpackage.h"

#include <optional>

#include "base/Utf8.h"
#include "core/Modules.h"
#include "projects/Lpipackages.h"

namespace tml {
namespace {

/// The project's bytes with the package; none where it requires it already.
std::optional<std::string> WithPackage(TContext& context, const std::string& file) {
    const auto bytes = GetModuleServices(context)->GetFiles().ReadFile(file);
    return bytes ? WithRequiredPackage(*bytes, file, kRuntimePackage) : std::nullopt;
}

}  // namespace

std::string PackageProject(TContext& context) {
    const auto project = GetActiveProject(context);
    const std::string file = project == nullptr ? std::string() : project->GetFileName();
    return SameText(ExtensionOf(file), ".lpi") ? file : std::string();
}

bool RequiresPackage(TContext& context, const std::string& projectFile) {
    return !WithPackage(context, projectFile);
}

bool RequirePackage(TContext& context, const std::string& projectFile) {
    auto bytes = WithPackage(context, projectFile);
    if (!bytes) return false;
    GetModuleServices(context)->GetFiles().WriteFile(projectFile, std::move(*bytes));
    return true;
}

}  // namespace tml

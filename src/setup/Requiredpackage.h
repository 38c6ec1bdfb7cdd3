#pragma once

#include <string>

#include "core/Context.h"

namespace tml {

/// The package with the run-time library of localized programs, which a project (.lpi) has to require.
inline constexpr const char* kRuntimePackage = "tmllang";

/// The active project's file where projects of its kind require packages, "" for one of another kind.
std::string PackageProject(TContext& context);
/// EBadInput, with the line, for what is no such project.
bool RequiresPackage(TContext& context, const std::string& projectFile);
/// Has the project require it, as a part of the running command. False where it does already. EBadInput for a
/// project that is read-only or no such project.
bool RequirePackage(TContext& context, const std::string& projectFile);

}  // namespace tml

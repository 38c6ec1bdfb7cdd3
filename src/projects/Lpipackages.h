#pragma once

#include <optional>
#include <string>

namespace tml {

/// The bytes of a project (.lpi) with a package among those that it requires, every other byte as it was;
/// none where it requires the package already. EBadInput, with the line, for what is no such project.
std::optional<std::string> WithRequiredPackage(const std::string& bytes, const std::string& fileName,
                                               const std::string& package);

}  // namespace tml

#pragma once

#include <optional>
#include <string>

namespace tml {

/// The change of one file as git and the patch program take it: a unified diff of texts; where one side holds
/// a NUL (binary forms, wide encodings) a git binary patch with both contents. name is relative, with "/";
/// none stands for a file that is not there. Empty when nothing changes.
std::string FilePatch(const std::string& name, const std::optional<std::string>& before,
                      const std::optional<std::string>& after);

}  // namespace tml

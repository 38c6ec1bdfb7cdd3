#include "cli/Shownpath.h"

#include <filesystem>

#include "base/Files.h"

namespace tml {

std::string ShownPath(const std::string& path) {
    std::error_code ignored;
    static const std::string folder = std::filesystem::current_path(ignored).generic_string();
    return RelativeTo(folder, path);
}

}  // namespace tml

#include "projects/Listablefiles.h"

#include "base/Errors.h"

namespace tml {

std::vector<std::string> TListableFiles::List(const std::string& folder) {
    try {
        return files_.List(folder);
    } catch (const EFileError& error) {
        refused_.try_emplace(folder, error.what());
        return {};
    }
}

}  // namespace tml

#pragma once

#include <string>
#include <string_view>

namespace tml {

/// The change from one text to another as a unified diff with three lines of context; empty when the
/// texts are equal. Lines end with LF or CR LF as in the texts; a missing last line end is marked the
/// usual way, and a tab ends a name that holds a blank. The cost grows with the size of the texts, not with
/// the number of changes.
std::string UnifiedDiff(const std::string& oldName, const std::string& newName, std::string_view oldText,
                        std::string_view newText);

}  // namespace tml

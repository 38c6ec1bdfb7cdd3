#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "source/Language.h"

namespace tml {

/// The 1-based line of a 1-based byte offset: the CR LF pairs in front of it, plus one.
int GetLineByPos(std::string_view text, std::size_t pos);

/// The lines around one line of a source, for the preview panes.
struct TSourcePreview {
    std::string Text;
    int Index = 0;  ///< 0-based place of the line among them
};

/// At most previewLines lines before and behind the line (1-based), or where that is below 1 the line of
/// the 1-based offset.
TSourcePreview GetCurrentSourcePreview(std::string_view text, int line, std::size_t offset, int previewLines);

/// For a declaration in a const section, given from its first delimiter on: whether it ends on this line.
bool IsStringTerminated(std::string_view line, const TLanguage& language);

}  // namespace tml

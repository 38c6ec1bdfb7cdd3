#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "source/Sourcetext.h"

namespace tml {

/// A preprocessor line of a C++ text; byte offsets, 0-based.
struct TPreprocessorLine {
    std::size_t Begin = 0;  ///< of the "#"
    std::size_t End = 0;    ///< behind its last token: comments that follow are left out
    std::string_view Word;  ///< "include", "ifdef" ..., "" for none
};

/// In the order of the text.
std::vector<TPreprocessorLine> PreprocessorLines(const TSourceText& source);

}  // namespace tml

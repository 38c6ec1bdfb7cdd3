#pragma once

#include <cstddef>
#include <vector>

#include "source/Sourcetext.h"

namespace tml {

/// What one quick pass over a text finds. The pass stops at quotes and at what may open a comment only;
/// all that lies between is told apart by Tokenize, and only where somebody asks for it. Unterminated
/// literals end with their line and are left out; an unterminated comment reaches to the end.
struct TSkim {
    std::vector<TComment> Comments;
    std::vector<TLiteral> Literals;
    bool CommentsNest = false;
};

/// Where a piece of text in quotes ends.
struct TQuoted {
    std::size_t BodyBegin = 0;
    std::size_t BodyEnd = 0;
    std::size_t End = 0;
    bool Closed = false;  ///< when not, End is the end of the line
};

}  // namespace tml

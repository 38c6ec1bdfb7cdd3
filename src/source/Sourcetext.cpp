#include "source/Sourcetext.h"

#include <algorithm>

#include "source/Skim.h"

namespace tml {

TSourceText::TSourceText(std::string_view text, const TLanguage& language, std::string fileName)
    : text_(text), language_(&language), fileName_(std::move(fileName)) {
    TSkim skim = language.IsCPPSource ? SkimCpp(text) : SkimPascal(text);
    comments_ = std::move(skim.Comments);
    literals_ = std::move(skim.Literals);
    commentsNest_ = skim.CommentsNest;
}

bool TSourceText::IsCommentAt(std::size_t offset) const {
    const auto behind =
        std::upper_bound(comments_.begin(), comments_.end(), offset,
                         [](std::size_t place, const TComment& c) { return place < c.Begin; });
    if (behind == comments_.begin()) return false;
    const TComment& comment = *(behind - 1);
    return offset < comment.End && !comment.IsDirective;
}

int TSourceText::LineOf(std::size_t offset) const {
    const std::string_view before = text_.substr(0, offset);
    return 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
}

}  // namespace tml

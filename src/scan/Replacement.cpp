#include "scan/Replacement.h"

#include "base/Encodings.h"
#include "base/Utf8.h"
#include "source/Literals.h"

namespace tml {
namespace {

/// Takes a mark out until it occurs nowhere: what moves together may spell it anew.
void LeaveOut(std::string& text, std::string_view mark) {
    for (std::size_t pos = 0; (pos = text.find(mark, pos)) != std::string::npos;) {
        text.erase(pos, mark.size());
        pos = pos < mark.size() ? 0 : pos - mark.size() + 1;
    }
}

/// The text as it stands in the generated comment; the cut comes first, so that it counts characters of
/// the text and never splits a doubled delimiter.
std::string CommentText(const TCallStyle& style, std::string_view text) {
    std::string cut(text);
    const auto length = static_cast<std::size_t>(style.CommentsLength < 0 ? 0 : style.CommentsLength);
    if (length > 0 && CountCodePoints(text) > length) cut = std::string(LeftCodePoints(text, length)) + "...";
    std::string body = EncodeLiteralBody(cut, *style.Language);
    LeaveOut(body, style.Language->COMMENTEND);
    if (style.CommentsNest) LeaveOut(body, style.Language->COMMENTSTART);
    return body;
}

/// A comment that the file cannot hold is left out.
bool HasComment(const TCallStyle& style, std::string_view text) {
    if (style.NoCommentsInSources) return false;
    std::string bytes;
    return style.Encoding.empty() || Encode({style.Encoding, ""}, CommentText(style, text), bytes);
}

}  // namespace

std::string TComponentReference::Text(const TLanguage& language) const {
    if (!WithForm) return ComponentName;
    return FormName + std::string(language.METHODPOINT) + ComponentName;
}

std::string ReplacementText(const TCallStyle& style, std::string_view id, std::string_view text,
                            bool endStatement) {
    const TLanguage& language = *style.Language;
    std::string call = style.Reference;
    call += language.METHODPOINT;
    call += style.ReplaceMethod;
    call += language.STRDELIM;
    call += EncodeLiteralBody(id, language);
    call += language.STRDELIM;
    if (HasComment(style, text)) {
        call.append(" ").append(language.COMMENTSTART).append(" ").append(language.STRDELIM);
        call += CommentText(style, text);
        call.append(language.STRDELIM).append(" ").append(language.COMMENTEND).append(" ");
    }
    call += ")";
    if (endStatement) call += ";";
    return call;
}

}  // namespace tml

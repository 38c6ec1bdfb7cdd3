#include "source/Ancestors.h"

#include "source/Charclass.h"
#include "source/Fields.h"

namespace tml {
namespace {

std::string_view WordAt(std::string_view text, std::size_t pos) {
    std::size_t end = pos;
    while (end < text.size() && IsNameChar(text[end]))
        ++end;
    return text.substr(pos, end - pos);
}

/// What follows the word "class" in Pascal, the class's name in C++ (whose region begins at the brace).
std::string_view HeadingOf(const TSourceText& source, const TRegion& region) {
    const std::string_view text = source.Text();
    const char* begin =
        source.Language().IsCPPSource ? region.Name.data() + region.Name.size() : text.data() + region.Begin;
    return text.substr(static_cast<std::size_t>(begin - text.data()));
}

/// "class(TBase" in Pascal, ": public TBase" in C++; "" for a heading without an ancestor.
std::string_view AncestorIn(std::string_view declaration, const TLanguage& language) {
    const std::string_view ends = language.IsCPPSource ? ":{;" : "(;";
    const std::size_t mark = declaration.find_first_of(ends);
    if (mark == std::string_view::npos || declaration[mark] != ends.front()) return {};
    std::string_view word;
    for (std::size_t pos = mark + 1; pos < declaration.size(); pos += word.size()) {
        pos = SkipBlanks(declaration, pos);
        word = WordAt(declaration, pos);
        const bool isAccess = language.IsCPPSource && (word == "public" || word == "protected" ||
                                                       word == "private" || word == "virtual");
        if (!isAccess) return word;
    }
    return {};
}

}  // namespace

std::string AncestorOf(const TSourceText& source, std::string_view className) {
    for (const TRegion& region : source.Outline()) {
        if (region.Kind != TRegionKind::Class || !SameName(source.Language(), region.Name, className))
            continue;
        const std::string_view ancestor = AncestorIn(HeadingOf(source, region), source.Language());
        if (!ancestor.empty()) return std::string(ancestor);
    }
    return {};
}

}  // namespace tml

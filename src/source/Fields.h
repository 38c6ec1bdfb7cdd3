#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "source/Sourcetext.h"

namespace tml {

/// One name of a field's declaration; byte offsets, 0-based.
struct TField {
    std::size_t Declaration = 0;     ///< where the declaration begins
    std::size_t DeclarationEnd = 0;  ///< behind its semicolon
    std::size_t Name = 0;
    std::size_t NameEnd = 0;
    std::size_t Type = 0;      ///< where the type begins
    std::size_t TypeEnd = 0;   ///< of the type's first name
    std::size_t Previous = 0;  ///< end of the name in front in the same declaration, 0 for the first
    std::size_t Next = 0;      ///< begin of the name behind in the same declaration, 0 for the last
    bool IsDesigned = false;   ///< where the designer keeps the form's components
};

/// The fields of a class and where the designer's section begins.
struct TClassFields {
    std::vector<TField> Fields;
    std::vector<std::size_t> Others;  ///< places of the names of methods and properties
    std::size_t Begin = 0;            ///< of the class's word (C++: its brace)
    std::size_t HeadingEnd = 0;       ///< behind the heading (C++: the brace)
    std::size_t SectionBegin = 0;     ///< behind the heading or the section's label
    bool HasSection = true;           ///< in C++ the section needs a label of its own
    std::size_t ClassEnd = 0;         ///< of the class's closing word or brace: its first byte
};

/// The declarations of a class with a body, several where conditions choose one. Classes of the name that are
/// nested or generic are others. EBadInput when there is none.
std::vector<TClassFields> ReadFields(const TSourceText& source, const std::string& className);

/// Whether two names are the same in the language.
bool SameName(const TLanguage& language, std::string_view left, std::string_view right);

}  // namespace tml

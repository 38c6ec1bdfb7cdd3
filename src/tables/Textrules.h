#pragma once

#include <optional>
#include <string_view>

#include "tables/Tablekinds.h"
#include "tables/Textdata.h"

namespace tml {

/// A property of a component as a form holds it.
struct TTextProperty {
    std::string_view ClassName;      ///< of the component
    std::string_view ComponentName;  ///< "" where it does not matter
    /// From the component on, through objects and items of collections: "Columns[0].Title.Caption",
    /// "Font.Name". A list of strings has no ".Strings" behind it.
    std::string_view Path;
    bool IsList = false;  ///< of strings
};

struct TTextKind {
    TStringsType Table;  ///< for the texts of the property, whatever they say
    /// The value says something to a reader: it holds a letter, is not the name of a component and, where the
    /// property holds data as well, is none.
    bool IsForReaders;
};

/// What a value of the property is (of a list its lines, LF between them), by what is known of the class and
/// by the property's name; none where its values are no texts.
std::optional<TTextKind> KindOfText(const TTextProperty& property, std::string_view value);

}  // namespace tml

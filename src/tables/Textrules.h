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

/// The table for the texts of the property, by what is known of the class and by the property's name; none
/// where its values are no texts.
std::optional<TStringsType> TableOfProperty(const TTextProperty& property);

/// True when the value (of a list its lines, LF between them) says something to a reader: it holds a letter,
/// is not the name of a component and, where the property holds data as well, is none.
bool IsForReaders(const TTextProperty& property, std::string_view value);

/// Both questions in one: the table for this value of the property, none where it is no text.
std::optional<TStringsType> KindOfText(const TTextProperty& property, std::string_view value);

}  // namespace tml

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Formvalue.h"

namespace tml {

enum class TTextShape : std::uint8_t { Text, List, Font, CharSet };

/// What a table can hold among the properties of a component and in the items of its collections.
struct TPropertyText {
    /// From the component on. An item is "[Name]" where its own Name is not empty, begins with no digit and
    /// no item before it has it, else "[0]" by its index. A list has no ".Strings" behind it, a font none of
    /// the names of its parts.
    std::string Path;
    std::string Text;  ///< UTF-8; the lines of a list with LF between them; see TFontValue for a font
    TTextShape Shape = TTextShape::Text;
};

/// All of them in the order of the form, empty texts too. A list is left out where one of its lines has a
/// line break in it, and where it is empty or of empty lines only.
std::vector<TPropertyText> TextsOfProperties(const std::vector<TFormProperty>& properties);
/// The same into a vector that gives its memory again; what it holds goes.
void ReadTextsOfProperties(const std::vector<TFormProperty>& properties, std::vector<TPropertyText>& texts);

/// The name in "[...]" for each item of a collection.
std::vector<std::string> ItemNames(const std::vector<std::vector<TFormProperty>>& collection);

/// A path without the ".Strings" of a list; the path itself where it has none.
std::string_view WithoutStrings(std::string_view path);

/// "Columns[0].Title.Caption" as "Columns.Title.Caption".
std::string WithoutIndexes(std::string_view path);

}  // namespace tml

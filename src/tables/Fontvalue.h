#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/Formvalue.h"

namespace tml {

/// A font as a table holds it: "Name=Sans;Height=-12;Style=Bold,Italic". What a form does not give is left
/// out.
struct TFontValue {
    std::optional<std::string> Name;
    std::optional<std::string> Height;              ///< decimal
    std::optional<std::vector<std::string>> Style;  ///< "Bold", without the prefix "fs"

    bool operator==(const TFontValue&) const = default;
    /// This one; what it does not give is the other's.
    TFontValue Over(const TFontValue& other) const;

    std::string Text() const;
    /// Passes over what it does not understand.
    static TFontValue FromText(std::string_view text);

    /// Takes a property of a font ("Name", "Height", "Style") as a form holds it; false for another one and
    /// for a value of another kind.
    bool Take(std::string_view name, const TFormValue& value);
    /// The other way round: what a form holds under this name; none where the font does not give it.
    std::optional<TFormValue> Property(std::string_view name) const;
};

}  // namespace tml

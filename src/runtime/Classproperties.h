#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// The index at which a property that the component does not hold yet stands best among those that it holds:
/// in a class of the family where streaming writes it, else behind the others of its object ("Font.Name"
/// behind "Font.Height"), else at the end.
std::size_t PlaceOfNewProperty(std::string_view className, const std::vector<std::string>& held,
                               std::string_view name);

}  // namespace tml

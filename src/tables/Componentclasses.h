#pragma once

#include <string_view>

namespace tml {

/// True when the component class is the ancestor or derives from it, as far as the data on the classes of
/// VCL, LCL and FMX knows; names without regard to case. A class that is unknown derives from itself alone.
bool ComponentInheritsFrom(std::string_view className, std::string_view ancestor);

/// The nearest ancestor that the data knows, "" for none.
std::string_view ComponentAncestor(std::string_view className);

}  // namespace tml

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// A class of the suite's run-time library.
struct TRuntimeClass {
    std::string_view Name;
    std::string_view Ancestor;    ///< nearest ancestor, in the library or of the platform
    std::string_view Unit;        ///< unit for the uses clause; its C++ header is the unit with ".hpp"
    bool Placeable;               ///< can be put on a form
    std::string_view Properties;  ///< published ones that the ancestor has not, separated by blanks
};

/// The class of this name, without regard to case; nullptr when the library has none.
const TRuntimeClass* FindRuntimeClass(std::string_view name);

/// True when the class is the ancestor or derives from it; an unknown class derives from nothing.
bool ClassInheritsFrom(std::string_view name, std::string_view ancestor);

/// Class names of the localization components, the one that new forms get first.
const std::vector<std::string>& LangClassNames();

}  // namespace tml

#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ids/Iduses.h"
#include "source/Language.h"
#include "tables/Table.h"

namespace tml {

/// What a unit and the components that it asks for texts do not agree on.
enum class TBadIDKind : std::uint8_t {
    Unused,     ///< an ID of the form's component that its unit does not name
    NotFound,   ///< an ID that a call names and the component has not
    Undecided,  ///< a call that may have a default text, goes on in the next line, or has no known component
};

struct TBadID {
    TBadIDKind Kind = TBadIDKind::Unused;
    std::string ID;
    int Place = 0;              ///< of an unused ID its index in the table, 0-based; else the line, 1-based
    std::string FormName;       ///< whose component has not the ID; "" for Undecided
    std::string ComponentName;  ///< the same
    std::string FileName;       ///< of the unit
    TIDUse Use;                 ///< of an unused ID: what else of the project asks for it

    /// "Not found in Form2.mlLang1"
    std::string Type() const;
    /// "Index: 3" or "Line: 17"
    std::string Info() const;
};

/// A form's localization component as a check sees it.
struct TIDHolder {
    std::string Name;
    TTable Strings{TStringsType::stStrings};
};

/// The component of a form by the form's name; nullptr where it has none or there is no such form.
using TIDHolders = std::function<const TIDHolder*(const std::string& formName)>;

/// Checks the text of a unit against the components' strings, line by line and without regard to what is
/// comment or dead code: first the IDs of the form's own component that no line names, in the order of its
/// table, then the calls whose ID is not found. formName is "" for a unit that is checked by itself; then
/// only calls behind a form's name are resolved. The component that a form-qualified call chooses stays in
/// force for the calls behind it.
std::vector<TBadID> CheckIDs(std::string_view text, const TLanguage& language, const std::string& formName,
                             const std::string& fileName, const TIDHolders& holders);

}  // namespace tml

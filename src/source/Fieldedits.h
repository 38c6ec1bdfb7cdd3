#pragma once

#include <string>

#include "base/Edits.h"
#include "source/Sourcetext.h"

namespace tml {

/// The edits by which the designer keeps a form's class in step with the form. Each leaves every other line
/// as it is and follows the style of what stands there. Names are compared without regard to case in Pascal
/// and with it in C++. EBadInput with file and line where the class or member that must be changed is
/// missing. For a C++ form the text is that of its header.

/// Whether the form's class has the field, of that type.
bool HasField(const TSourceText& source, const std::string& formClass, const std::string& name,
              const std::string& className);
/// A component's field in each declaration of the form's class, behind the last field of the designer's
/// section (in C++ the published one, which is made where there is none). No edits where the field is there
/// already. It stands where every build sees it and in no comment; EBadInput where that cannot be had, and
/// where the class declares something else by the name.
TEdits AddField(const TSourceText& source, const std::string& formClass, const std::string& name,
                const std::string& className);
/// The declared name alone is replaced; uses of the field in code are left to the person.
TEdits RenameField(const TSourceText& source, const std::string& formClass, const std::string& oldName,
                   const std::string& newName);
/// Takes the field's line away, or the name alone where several share a declaration.
TEdits RemoveField(const TSourceText& source, const std::string& formClass, const std::string& name);

}  // namespace tml

#pragma once

#include "editors/Editorhost.h"
#include "platform/Registration.h"

namespace tml {

/// Registers the components of the run-time library, their editors and, by expRegister, the expert; the order
/// is fixed.
void RegisterMlreg(IRegistration& registration, const TEditorHostPtr& host,
                   const std::function<void()>& expRegister);

}  // namespace tml

#pragma once

#include <memory>

#include "cli/Program.h"
#include "core/Formrow.h"
#include "platform/Mlruntime.h"

namespace tml {

/// "insert": components on forms.
void AddInsertCommand(CLI::App& app, TProgram& program);

/// EBadInput without a component: a form without a form file takes none; what a frame on a form brings along
/// is not the form's own.
void ExpectComponent(const std::shared_ptr<TmlCustomLang>& component, const TFormRow& row);

}  // namespace tml

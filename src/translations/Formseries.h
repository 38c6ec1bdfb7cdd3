#pragma once

#include <exception>
#include <functional>
#include <string>
#include <vector>

#include "core/Context.h"

namespace tml {

/// Whether a form that fails ends the series.
enum class TOnFailure { Stop, GoOn };

/// Does the work for each row as one step of undo. Each form is a scope of its own: one that fails goes back
/// by itself, and those before it stay done. finish belongs to the step and comes behind the forms, whether
/// one of them has failed or not; what it throws takes everything back, as does the person who stops at the
/// progress text. Gives the error of the first form that failed, with which the command has to end.
[[nodiscard]] std::exception_ptr ForEachForm(TContext& context, const std::string& title,
                                             const std::vector<TFormRow*>& rows,
                                             const std::function<void(TFormRow&)>& work,
                                             const std::function<void()>& finish = {},
                                             TOnFailure onFailure = TOnFailure::Stop);

enum class TFormUse { Reads, Changes };

/// Does the work on the localization component of a row's form. A unit that was not open is closed again, and
/// saved before if the form changes; one that was open is marked as modified. Nothing for a form without a
/// component, and where the IDE has no module of the form (an error message): the unit is left open then.
void WithTmlLang(TContext& context, TFormRow& row, TFormUse use,
                 const std::function<void(TmlCustomLang&)>& work);

/// The selected rows of the list in front, in its order.
std::vector<TFormRow*> SelectedRows(TContext& context);

}  // namespace tml

#pragma once

#include <string>
#include <vector>

#include "core/Context.h"

namespace tml {

/// The entries of the sub-menu "Change &TmlLang Type to", one a class: "&0. TmlLang".
std::vector<std::string> TypeCaptions(IMlRuntime& runtime);

/// The entry (0-based): gives the localization component of each selected row's form another class.
void ToTmlLang1Click(TContext& context, int menuIndex);

/// The same for rows: form file, field and used unit, and the headers of forms that inherit the component,
/// all in closed files and as one step of undo. What was open is saved, closed, and opened again. A unit that
/// cannot be closed ends it with a message, rows before it are changed. Properties that the new class does
/// not have go after a question. A header line with something behind the class stays, which a message tells;
/// the field changes all the same. EBadInput where a file cannot be converted: its row, and those behind it,
/// stay as they were; where one cannot be written, all do.
void ChangeTmlLangType(TContext& context, const std::vector<TFormRow*>& rows, const std::string& className);

}  // namespace tml

#pragma once

#include <string>
#include <vector>

#include "platform/Mlruntime.h"
#include "runtime/Transgrid.h"
#include "runtime/Transtexts.h"

namespace tml {

/// Fills translations from the project's dictionary, by the options of the project, as a part of the step
/// that EndStep of the texts ends; base texts, settings and keys among the cells are passed over. Asks
/// before, unless the project does not want it. Gives what came of it, "" where the person does not go on.
/// EBadInput for a dictionary that cannot be used, or has not the languages.
std::string FillFromDictionary(TTransTexts& texts, const std::vector<TTransCell>& cells, IMlRuntime& runtime);

}  // namespace tml

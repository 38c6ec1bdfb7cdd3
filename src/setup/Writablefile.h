#pragma once

#include <string>

#include "core/Context.h"

namespace tml {

/// EBadInput for a file that is read-only. One that is not there may be made.
void ExpectWritableFile(TContext& context, const std::string& file);

}  // namespace tml

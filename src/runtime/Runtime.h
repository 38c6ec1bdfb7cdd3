#pragma once

#include <memory>

#include "platform/Mlruntime.h"

namespace tml {

/// The suite's run-time library over the components of forms.
std::unique_ptr<IMlRuntime> MakeMlRuntime();

}  // namespace tml

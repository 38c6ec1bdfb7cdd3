#pragma once

#include <optional>
#include <string>

#include "platform/Registry.h"

namespace tml {

/// Where a window stands on the screen, in pixels; what nobody has set yet follows the design. A view
/// places its window by it when it is shown, and notes the place before it is closed.
struct TPlacement {
    std::optional<int> Width, Height, Top, Left;
};

/// Takes over what is stored under the key.
void ReadPlacement(IRegistryReader& registry, const std::string& key, TPlacement& placement);
/// Stores what is set.
void WritePlacement(IRegistry& registry, const std::string& key, const TPlacement& placement);

}  // namespace tml

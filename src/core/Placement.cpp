#include "core/Placement.h"

#include <array>

namespace tml {
namespace {

struct TPlacementValue {
    const char* Name;
    std::optional<int> TPlacement::*Field;
};
constexpr std::array kValues{
    TPlacementValue{"Width", &TPlacement::Width}, TPlacementValue{"Height", &TPlacement::Height},
    TPlacementValue{"Top", &TPlacement::Top}, TPlacementValue{"Left", &TPlacement::Left}};

}  // namespace

void ReadPlacement(IRegistryReader& registry, const std::string& key, TPlacement& placement) {
    for (const TPlacementValue& value : kValues)
        if (const auto stored = registry.ReadInteger(key, value.Name)) placement.*value.Field = stored;
}

void WritePlacement(IRegistry& registry, const std::string& key, const TPlacement& placement) {
    for (const TPlacementValue& value : kValues)
        if (const auto& number = placement.*value.Field) registry.WriteInteger(key, value.Name, *number);
}

}  // namespace tml

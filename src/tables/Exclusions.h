#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace tml {

/// The lists of a localization component that say what of its form is not translated.
enum class TExclusionList { DoNotTranslate, ExcludedProperties, SmartExcludeProps };

inline constexpr std::array kExclusionLists = {
    TExclusionList::DoNotTranslate, TExclusionList::ExcludedProperties, TExclusionList::SmartExcludeProps};

/// The property that holds a list.
constexpr std::string_view PropertyOf(TExclusionList list) {
    constexpr std::array<std::string_view, kExclusionLists.size()> kNames = {
        "DoNotTranslate", "ExcludedProperties", "SmartExcludeProps"};
    return kNames[static_cast<std::size_t>(list)];
}

}  // namespace tml

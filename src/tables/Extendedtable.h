#pragma once

#include <string_view>

#include "tables/Propertykinds.h"

namespace tml {

/// The extended translations, where one of what a component holds is named by the type of its table; none of
/// kTableKinds.
inline constexpr auto kExtendedTable = static_cast<TStringsType>(kTableKinds.size());

/// The property that holds the table, or the extended translations.
constexpr std::string_view PropertyOf(TStringsType table) {
    return table == kExtendedTable ? std::string_view(kExtendedTranslations) : KindOf(table).Property;
}

}  // namespace tml

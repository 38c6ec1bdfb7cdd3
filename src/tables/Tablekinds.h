#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace tml {

/// The tables of a localization component, in the order of their ordinals: Row(Name) for each. Name is the
/// property that holds the table.
#define TML_TABLE_KINDS(Row)                                                                              \
    Row(Captions) Row(Hints) Row(DisplayLabels) Row(Fonts) Row(MultiLines) Row(DlgsCaptions) Row(Strings) \
        Row(OtherStrings) Row(Locales) Row(Collections) Row(CharSets) Row(ListView_TreeView_Items)

#define TML_ROW(Property) st##Property,
enum class TStringsType { TML_TABLE_KINDS(TML_ROW) };
#undef TML_ROW

struct TTableKind {
    TStringsType Type;
    std::string_view Name;      ///< of the enumerator
    std::string_view Property;  ///< of the component
};

#define TML_ROW(Property) TTableKind{TStringsType::st##Property, "st" #Property, #Property},
inline constexpr std::array kTableKinds{TML_TABLE_KINDS(TML_ROW)};
#undef TML_ROW
#undef TML_TABLE_KINDS

/// The ordinal of the table that the property holds, -1 for another property.
constexpr int OrdinalOf(std::string_view property) {
    for (const TTableKind& kind : kTableKinds)
        if (kind.Property == property) return static_cast<int>(kind.Type);
    return -1;
}

constexpr const TTableKind& KindOf(TStringsType type) {
    return kTableKinds[static_cast<std::size_t>(type)];
}

}  // namespace tml

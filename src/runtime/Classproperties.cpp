#include "runtime/Classproperties.h"

#include <algorithm>

#include "base/Utf8.h"
#include "runtime/Classes.h"

namespace tml {
namespace {

/// What a class adds to its ancestor's properties, in the order of their declaration.
struct TPublished {
    std::string_view ClassName;
    std::vector<std::string_view> Properties;
};

const TPublished kPublished[] = {
    {"TComponent", {"Tag"}},
    {"TmlCustomLang",
     {"NumOfLanguages",
      "LangNames.Strings",
      "Language",
      "Delimiter",
      "Dispatcher",
      "IgnoreRemovals",
      "MirrorLayout",
      "Captions.Strings",
      "Hints.Strings",
      "DisplayLabels.Strings",
      "Fonts.Strings",
      "MultiLines.Strings",
      "DlgsCaptions.Strings",
      "Strings.Strings",
      "OtherStrings.Strings",
      "Locales.Strings",
      "Collections.Strings",
      "CharSets.Strings",
      "States.Strings",
      "DoNotTranslate.Strings",
      "ExcludedProperties.Strings",
      "SmartExcludeProps.Strings",
      "ExtendedTranslations",
      "OnChangeLanguage",
      "OnMissing",
      "OnKept"}},
    {"TmlLangLinked", {"CommonContainer"}},
    {"TmlLangTLV", {"ListView_TreeView_Items.Strings"}},
    {"TmlLangDispatcher", {"NumOfLanguages", "LangNames.Strings", "Language", "OnChangeLanguage"}},
};

/// Where it stands in the designer; streaming writes it behind what is published.
constexpr std::string_view kPlace[] = {"Left", "Top"};

/// Names as forms hold them, in the order in which Object Pascal streams them; empty for a class that is not
/// of the family.
std::vector<std::string_view> OrderOf(std::string_view className) {
    std::vector<std::string_view> order;
    const bool isOfFamily =
        ClassInheritsFrom(className, "TmlCustomLang") || ClassInheritsFrom(className, "TmlLangDispatcher");
    if (!isOfFamily) return order;
    for (const TPublished& row : kPublished)
        if (ClassInheritsFrom(className, row.ClassName))
            order.insert(order.end(), row.Properties.begin(), row.Properties.end());
    order.insert(order.end(), std::begin(kPlace), std::end(kPlace));
    return order;
}

std::size_t RankOf(const std::vector<std::string_view>& order, std::string_view name) {
    const auto found =
        std::find_if(order.begin(), order.end(), [&](std::string_view one) { return SameText(one, name); });
    return static_cast<std::size_t>(found - order.begin());
}

/// Behind the last one that comes before it, else in front of the first one that comes after it.
std::size_t PlaceInOrder(const std::vector<std::string_view>& order, const std::vector<std::string>& held,
                         std::string_view name) {
    const std::size_t rank = RankOf(order, name);
    if (rank == order.size()) return held.size();
    std::size_t next = held.size();
    for (std::size_t i = held.size(); i-- > 0;) {
        const std::size_t other = RankOf(order, held[i]);
        if (other < rank) return i + 1;
        if (other < order.size()) next = i;
    }
    return next;
}

std::size_t PlaceInObject(const std::vector<std::string>& held, std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) return held.size();
    const std::string_view object = name.substr(0, dot + 1);
    for (std::size_t i = held.size(); i-- > 0;)
        if (held[i].size() > object.size() && SameText(held[i].substr(0, object.size()), object))
            return i + 1;
    return held.size();
}

}  // namespace

std::size_t PlaceOfNewProperty(std::string_view className, const std::vector<std::string>& held,
                               std::string_view name) {
    const std::vector<std::string_view> order = OrderOf(className);
    return order.empty() ? PlaceInObject(held, name) : PlaceInOrder(order, held, name);
}

}  // namespace tml

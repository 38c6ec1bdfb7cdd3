#include "tables/Exclusionrules.h"

#include <algorithm>
#include <array>

#include "base/Utf8.h"
#include "tables/Componentclasses.h"
#include "tables/Propertytexts.h"
#include "tables/Textshapes.h"

namespace tml {
namespace {

struct TSmartName {
    std::string_view Name;
    bool (*Covers)(std::string_view text);
};

bool IsEmpty(std::string_view text) {
    return text.empty();
}

constexpr std::array kSmartNames = {
    TSmartName{"Empty", IsEmpty},
    TSmartName{"Number", IsNumber},
    TSmartName{"Punctuation", IsPunctuation},
    TSmartName{"Path", IsPath},
    TSmartName{"Address", IsAddress},
    TSmartName{"Identifier", LooksLikeIdentifier},
    TSmartName{"EqualsName", nullptr},
};

std::string_view LastName(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    return dot == std::string_view::npos ? path : path.substr(dot + 1);
}

/// The names, upper-cased, by which a property can be meant: its path, with and without indexes, its last
/// name.
std::vector<std::string> NamesOf(std::string_view path) {
    std::vector<std::string> names = {UpperCase(path)};
    const std::string plain = UpperCase(WithoutIndexes(path));
    for (const std::string_view name : {std::string_view(plain), LastName(plain)})
        if (std::find(names.begin(), names.end(), name) == names.end()) names.emplace_back(name);
    return names;
}

bool AnyIn(const std::unordered_set<std::string>& set, const std::string& prefix,
           const std::vector<std::string>& names) {
    return !set.empty() && std::any_of(names.begin(), names.end(), [&](const std::string& name) {
        return set.count(prefix + '.' + name) > 0;
    });
}

}  // namespace

std::vector<std::string_view> SmartRuleNames() {
    std::vector<std::string_view> names;
    names.reserve(kSmartNames.size());
    for (const TSmartName& rule : kSmartNames)
        names.push_back(rule.Name);
    return names;
}

TExclusionRules::TExclusionRules(const TStringList& doNotTranslate, const TStringList& excludedProperties,
                                 const TStringList& smartRules,
                                 const std::vector<std::string>& componentPaths) {
    if (!excludedProperties.Empty())
        for (const std::string& path : componentPaths)
            components_.insert(UpperCase(path));
    for (const std::string& name : doNotTranslate)
        if (!Trim(name).empty()) doNotTranslate_.insert(UpperCase(Trim(name)));
    for (const std::string& entry : excludedProperties)
        AddExclusion(Trim(entry));
    for (const std::string& rule : smartRules)
        AddSmartRule(Trim(rule));
}

/// "X.P" means the component X where the form has one; the component's path may be longer than a name.
void TExclusionRules::AddExclusion(std::string_view entry) {
    const std::string upper = UpperCase(entry);
    if (upper.starts_with('!')) {
        excludedPaths_.insert(upper.substr(1));
        return;
    }
    if (upper.starts_with('.')) {
        properties_.insert(upper);
        return;
    }
    if (upper.find('.') == std::string::npos) {
        if (!upper.empty()) excludedClasses_.insert(upper);
        return;
    }
    for (std::size_t dot = upper.find('.'); dot != std::string::npos; dot = upper.find('.', dot + 1))
        if (components_.count(upper.substr(0, dot)) > 0) {
            ofComponent_.insert(upper);
            return;
        }
    ofClass_.insert(upper);
}

void TExclusionRules::AddSmartRule(std::string_view rule) {
    const std::size_t colon = std::min(rule.find(':'), rule.size());
    const auto* const known =
        std::find_if(kSmartNames.begin(), kSmartNames.end(),
                     [&](const TSmartName& one) { return SameText(one.Name, rule.substr(0, colon)); });
    if (known == kSmartNames.end()) return;
    TSmartRule smart{known->Covers, "*", "*"};
    if (colon < rule.size()) {
        const std::string_view place = rule.substr(colon + 1);
        const std::size_t dot = std::min(place.find('.'), place.size());
        smart.Class = std::string(place.substr(0, dot));
        if (dot < place.size()) smart.Property = std::string(place.substr(dot + 1));
    }
    smart_.push_back(std::move(smart));
}

bool TExclusionRules::DoesNotTranslate(std::string_view path) const {
    return !doNotTranslate_.empty() && doNotTranslate_.count(UpperCase(path)) > 0;
}

bool TExclusionRules::ExcludesComponent(std::string_view path, std::string_view className) const {
    if (!excludedPaths_.empty() && excludedPaths_.count(UpperCase(path)) > 0) return true;
    if (excludedClasses_.empty()) return false;
    for (std::string_view name = className; !name.empty(); name = ComponentAncestor(name))
        if (excludedClasses_.count(UpperCase(name)) > 0) return true;
    return false;
}

bool TExclusionRules::ExcludesByClass(std::string_view className,
                                      const std::vector<std::string>& names) const {
    for (std::string_view name = className; !ofClass_.empty() && !name.empty();
         name = ComponentAncestor(name))
        if (AnyIn(ofClass_, UpperCase(name), names)) return true;
    return false;
}

bool TExclusionRules::ExcludesProperty(std::string_view componentPath, const TTextProperty& property) const {
    if (properties_.empty() && ofComponent_.empty() && ofClass_.empty()) return false;
    const std::vector<std::string> names = NamesOf(property.Path);
    return AnyIn(properties_, {}, names) || AnyIn(ofComponent_, UpperCase(componentPath), names) ||
           ExcludesByClass(property.ClassName, names);
}

bool TExclusionRules::ExcludesText(const TTextProperty& property, std::string_view text) const {
    const std::string_view trimmed = Trim(text);
    return std::any_of(smart_.begin(), smart_.end(), [&](const TSmartRule& rule) {
        if (rule.Class != "*" && !ComponentInheritsFrom(property.ClassName, rule.Class)) return false;
        if (rule.Property != "*" && !SameText(rule.Property, LastName(property.Path)) &&
            !SameText(rule.Property, property.Path))
            return false;
        return rule.Covers != nullptr ? rule.Covers(trimmed) : SameText(trimmed, property.ComponentName);
    });
}

}  // namespace tml

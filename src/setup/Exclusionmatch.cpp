#include "setup/Exclusionmatch.h"

#include <algorithm>

#include "base/Utf8.h"
#include "tables/Exclusionrules.h"

namespace tml {

TExclusionSubject::TExclusionSubject(IOTAComponent& form) {
    Add(form, {});
    AddOwned(form, {});
}

void TExclusionSubject::Add(IOTAComponent& component, const std::string& path) {
    parts_.push_back({path, component.GetName(), component.GetComponentType(),
                      TextsOfProperties(component.GetTextProperties())});
}

void TExclusionSubject::AddOwned(IOTAComponent& owner, const std::string& prefix) {
    for (int i = 0; i < owner.GetComponentCount(); ++i) {
        const auto component = owner.GetComponent(i);
        const std::string path = prefix + component->GetName();
        Add(*component, path);
        AddOwned(*component, path + '.');
    }
}

/// "!X", "X" and "X.Property" may.
bool TExclusionSubject::NamesComponent(const std::string& entry) const {
    const std::string name = UpperCase(entry.substr(entry.starts_with('!') ? 1 : 0));
    return std::any_of(parts_.begin(), parts_.end(), [&](const TPart& part) {
        const std::string path = UpperCase(part.Path);
        return !path.empty() && (name == path || name.starts_with(path + '.'));
    });
}

TExclusionReach TExclusionSubject::Try(TExclusionList list, const std::string& entry) const {
    if (list == TExclusionList::DoNotTranslate)
        return NamesComponent(entry) ? TExclusionReach::OfForm : TExclusionReach::Nothing;
    const bool isSmart = list == TExclusionList::SmartExcludeProps;
    const TStringList one({entry});
    std::vector<std::string> paths;
    for (const TPart& part : parts_)
        paths.push_back(part.Path);
    const TExclusionRules rules({}, isSmart ? TStringList() : one, isSmart ? one : TStringList(), paths);
    const bool excludes = std::any_of(parts_.begin(), parts_.end(), [&](const TPart& part) {
        return rules.ExcludesComponent(part.Path, part.ClassName) ||
               std::any_of(part.Texts.begin(), part.Texts.end(), [&](const TPropertyText& text) {
                   // What holds for a font holds for its name.
                   const std::string path = text.Shape == TTextShape::Font ? text.Path + ".Name" : text.Path;
                   const TTextProperty property{part.ClassName, part.Name, path,
                                                text.Shape == TTextShape::List};
                   return rules.ExcludesProperty(part.Path, property) ||
                          rules.ExcludesText(property, text.Text);
               });
    });
    if (!excludes) return TExclusionReach::Nothing;
    return !isSmart && NamesComponent(entry) ? TExclusionReach::OfForm : TExclusionReach::Everywhere;
}

}  // namespace tml

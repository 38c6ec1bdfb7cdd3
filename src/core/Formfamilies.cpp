#include "core/Formfamilies.h"

#include <unordered_set>

#include "base/Utf8.h"

namespace tml {

void TFormFamilies::Add(const TFormAnalysis& form, const std::string& unitFile) {
    if (!form.Ancestor.empty())
        byAncestor_.emplace(UpperCase(form.Ancestor), TMember{form.FormName, unitFile});
}

std::vector<std::string> TFormFamilies::DescendantsOf(const std::string& formName) const {
    std::vector<std::string> units;
    std::vector<std::string> names{UpperCase(formName)};
    std::unordered_set<std::string> met(names.begin(), names.end());
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto [first, last] = byAncestor_.equal_range(names[i]);
        for (auto child = first; child != last; ++child) {
            const std::string name = UpperCase(child->second.FormName);
            if (!met.insert(name).second) continue;
            names.push_back(name);
            units.push_back(child->second.UnitFile);
        }
    }
    return units;
}

TFormFamilies FamiliesOf(const TFormRows& rows) {
    TFormFamilies families;
    for (const auto& row : rows.Items())
        families.Add(row->Component, row->FileName);
    return families;
}

std::vector<TFormRow*> AncestorsFirst(const std::vector<TFormRow*>& rows) {
    std::unordered_map<std::string, TFormRow*> byName;
    for (TFormRow* row : rows)
        byName.try_emplace(UpperCase(row->FormName), row);
    std::vector<TFormRow*> ordered;
    std::unordered_set<TFormRow*> met;
    for (TFormRow* row : rows) {
        std::vector<TFormRow*> line;  // from the form to its first ancestor
        while (met.insert(row).second) {
            line.push_back(row);
            const auto ancestor = byName.find(UpperCase(row->Component.DerivesFrom));
            if (ancestor == byName.end()) break;
            row = ancestor->second;
        }
        ordered.insert(ordered.end(), line.rbegin(), line.rend());
    }
    return ordered;
}

}  // namespace tml

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "base/Stringlist.h"
#include "tables/Textrules.h"

namespace tml {

/// The names of the smart rules: "Empty", "Number", ...
std::vector<std::string_view> SmartRuleNames();

/// What the exclusion lists of a localization component leave out of its tables, ready to be asked.
class TExclusionRules {
  public:
    /// componentPaths: the components that the form has, as keys name them. Entries that say nothing are
    /// passed over.
    TExclusionRules(const TStringList& doNotTranslate, const TStringList& excludedProperties,
                    const TStringList& smartRules, const std::vector<std::string>& componentPaths);

    /// The component alone; what it holds is the caller's business.
    bool ExcludesComponent(std::string_view path, std::string_view className) const;
    /// True where the component with all that it holds is not entered.
    bool DoesNotTranslate(std::string_view path) const;
    bool ExcludesProperty(std::string_view componentPath, const TTextProperty& property) const;
    /// By the smart rules; text is the base text.
    bool ExcludesText(const TTextProperty& property, std::string_view text) const;

  private:
    struct TSmartRule {
        bool (*Covers)(std::string_view text);  ///< nullptr for EqualsName
        std::string Class;                      ///< "*" for any
        std::string Property;
    };
    void AddExclusion(std::string_view entry);
    void AddSmartRule(std::string_view rule);
    /// The names, upper-cased, that a property can be excluded by: its path and its last name.
    bool ExcludesByClass(std::string_view className, const std::vector<std::string>& names) const;

    std::unordered_set<std::string> components_;      ///< paths of the form's components; all upper-cased
    std::unordered_set<std::string> doNotTranslate_;  ///< paths
    std::unordered_set<std::string> excludedPaths_;
    std::unordered_set<std::string> excludedClasses_;
    std::unordered_set<std::string> properties_;  ///< of every component
    std::unordered_set<std::string> ofComponent_;
    std::unordered_set<std::string> ofClass_;
    std::vector<TSmartRule> smart_;
};

}  // namespace tml

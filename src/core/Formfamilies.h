#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "core/Formrows.h"

namespace tml {

/// Which forms inherit whose localization component. The code of an ancestor runs in its descendants too,
/// and a list that a descendant stores stands for the ancestor's whole.
class TFormFamilies {
  public:
    /// What a form's analysis tells; a component of the form's own says nothing.
    void Add(const TFormAnalysis& form, const std::string& unitFile);
    /// The units of the forms that inherit the form's component, nearer ones first.
    std::vector<std::string> DescendantsOf(const std::string& formName) const;

  private:
    struct TMember {
        std::string FormName;
        std::string UnitFile;
    };
    std::unordered_multimap<std::string, TMember> byAncestor_;  ///< by its upper-cased name
};

TFormFamilies FamiliesOf(const TFormRows& rows);

/// The rows in their order, but each behind those that its form derives from: what is done to the ancestor
/// reaches its descendants.
std::vector<TFormRow*> AncestorsFirst(const std::vector<TFormRow*>& rows);

}  // namespace tml

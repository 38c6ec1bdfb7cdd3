#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/Context.h"
#include "ids/Idcheck.h"

namespace tml {

/// The components of the project's forms, each read when it is first asked for.
class TFormIDs {
  public:
    explicit TFormIDs(TContext& context) : context_(context) {}

    /// nullptr for a form without a component and where the project has no such form. EmlLangSilent when its
    /// unit cannot be opened.
    const TIDHolder* Find(const std::string& formName);

  private:
    TContext& context_;
    std::unordered_map<std::string, std::optional<TIDHolder>> read_;  ///< by the form's upper-cased name
};

/// Checks a unit as the editor holds it; a closed one is opened meanwhile. formName is that of its form, ""
/// for a unit that is checked by itself. EmlLangSilent when it cannot be opened.
std::vector<TBadID> CheckIDInFile(TContext& context, TFormIDs& forms, const std::string& formName,
                                  const std::string& fileName);

}  // namespace tml

#pragma once

#include <string>
#include <vector>

#include "platform/Mlruntime.h"
#include "tables/Exclusions.h"
#include "tables/Propertytexts.h"

namespace tml {

/// How far an entry of an exclusion list reaches.
enum class TExclusionReach {
    Nothing,     ///< it leaves nothing of the form out
    OfForm,      ///< it names a component of the form
    Everywhere,  ///< it goes by a class, a property or a text, as it may on any other form
};

/// The components of an open form with the texts that its file holds, for entries of exclusion lists to be
/// tried on.
class TExclusionSubject {
  public:
    explicit TExclusionSubject(IOTAComponent& form);

    TExclusionReach Try(TExclusionList list, const std::string& entry) const;

  private:
    struct TPart {
        std::string Path;
        std::string Name;
        std::string ClassName;
        std::vector<TPropertyText> Texts;
    };

    void Add(IOTAComponent& component, const std::string& path);
    void AddOwned(IOTAComponent& owner, const std::string& prefix);
    bool NamesComponent(const std::string& entry) const;

    std::vector<TPart> parts_;
};

}  // namespace tml

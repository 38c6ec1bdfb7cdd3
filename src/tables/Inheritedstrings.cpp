#include "tables/Inheritedstrings.h"

#include "tables/Languageplaces.h"

namespace tml {

bool TakeInheritedStrings(TTable& own, const TStringList& ownNames, TTable inherited,
                          const TStringList& inheritedNames) {
    inherited.MoveLanguages(PlacesOfLanguages(inheritedNames, ownNames));
    const std::size_t count = own.Entries().size();
    for (const TTableEntry& entry : inherited.Entries())
        if (own.Find(entry.Key) < 0) own.Append(entry);
    return own.Entries().size() > count;
}

}  // namespace tml

#include "tables/Languages.h"

#include <algorithm>

#include "base/Format.h"

namespace tml {

std::string GeneratedLangName(int position) {
    return Format("Language N%d", position);
}

TStringList FitLangNames(TStringList names, int count) {
    while (names.Count() > std::max(count, 0))
        names.Delete(names.Count() - 1);
    while (names.Count() < std::min(count, kMostLanguages))
        names.Add(GeneratedLangName(names.Count() + 1));
    return names;
}

}  // namespace tml

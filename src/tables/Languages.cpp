#include "tables/Languages.h"

#include "base/Format.h"

namespace tml {

std::string GeneratedLangName(int position) {
    return Format("Language N%d", position);
}

}  // namespace tml

#pragma once

#include "tables/Langtexts.h"

namespace tml {

/// Whether a language (1-based place) of the texts is written from right to left. The form's own word on what
/// a language is counts before its name.
bool IsRightToLeft(const TLangTexts& texts, int place);

}  // namespace tml

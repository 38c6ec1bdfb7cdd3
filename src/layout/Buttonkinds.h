#pragma once

#include <string_view>

namespace tml {

/// The caption of a button of a kind ("bkOK") whose form gives none; "" for one without a kind.
std::string_view CaptionOfKind(std::string_view kind);

}  // namespace tml

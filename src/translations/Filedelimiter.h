#pragma once

#include <string>

#include "core/Context.h"

namespace tml {

/// The delimiter that a text translation file has, the setting's where it has none or is not there.
std::string GetMLLFileDelimiter(TContext& context, const std::string& fileName);

/// Asked where a file that exists would get another delimiter.
inline constexpr const char* kOtherDelimiter =
    "The existing delimiter in file differs from new one. This may cause errors in future reading "
    "translation information Continue?";

/// Asks for the delimiter of a file that has the old one; delimiter is the proposal, then the answer. False
/// to stop: the person cancels, gives none, or answers otherDelimiter with No.
bool AskForDelimiter(TContext& context, const std::string& oldDelimiter, const std::string& fileName,
                     std::string& delimiter, const char* otherDelimiter = kOtherDelimiter);

}  // namespace tml

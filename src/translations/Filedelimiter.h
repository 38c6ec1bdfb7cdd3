#pragma once

#include <string>

#include "core/Context.h"

namespace tml {

/// The delimiter that a text translation file has, the setting's where it has none or is not there.
std::string GetMLLFileDelimiter(TContext& context, const std::string& fileName);

/// Asks for the delimiter of a file that has the old one; delimiter is the proposal, then the answer. False
/// to stop: the person cancels, gives none, or does not want another one in a file that exists.
bool AskForDelimiter(TContext& context, const std::string& oldDelimiter, const std::string& fileName,
                     std::string& delimiter);

}  // namespace tml

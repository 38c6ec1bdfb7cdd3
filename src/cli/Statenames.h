#pragma once

#include <string>

#include "tables/States.h"

namespace tml {

/// What is wrong with the name of a state on the command line, "" for nothing.
std::string CheckStateName(const std::string& name);

/// The state of a name in which nothing is wrong.
TTextState TextStateOf(const std::string& name);

}  // namespace tml

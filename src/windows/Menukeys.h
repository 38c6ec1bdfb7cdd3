#pragma once

#include <memory>
#include <vector>

#include "windows/Controls.h"

namespace tml {

/// Gives the entries of a menu, and of its sub-menus, that mark no accelerator a letter of their own, one
/// that begins a word where there is such a one. An entry all of whose letters are taken stays without.
void AddAccelerators(const std::vector<std::shared_ptr<TMenuItem>>& menu);

}  // namespace tml

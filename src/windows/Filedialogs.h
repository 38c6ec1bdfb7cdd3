#pragma once

#include <string>
#include <vector>

#include "windows/Controls.h"

namespace tml {

/// The platform's dialog for choosing files, shown with ShowModal. Its title is Caption.
class TOpenDialog : public TForm {
  public:
    std::string DefaultExt;      ///< without a dot
    std::string Filter;          ///< "Texts (*.txt)|*.txt|All files|*.*"
    bool FileMustExist = false;  ///< and more than one may be chosen
    /// Full paths: the proposal, then what was chosen, in the person's order.
    std::vector<std::string> Files;
};

}  // namespace tml

#pragma once

#include <string>
#include <vector>

#include "windows/Controls.h"

namespace tml {

/// The platform's dialogs for files and folders, shown with ShowModal. Their title is Caption.
class TFileDialog : public TForm {
  public:
    std::string DefaultExt;  ///< without a dot
    std::string Filter;      ///< "Texts (*.txt)|*.txt|All files|*.*"
    int FilterIndex = 1;     ///< 1-based: the filter that is proposed, then the one that was chosen
    /// Full paths: the proposal, then what was chosen, in the person's order.
    std::vector<std::string> Files;
};

class TOpenDialog : public TFileDialog {
  public:
    bool FileMustExist = false;
    bool AllowMultiSelect = false;  ///< of files that exist
};

class TSaveDialog : public TFileDialog {
  public:
    bool OverwritePrompt = false;  ///< asks before a file that exists is chosen
};

class TSelectDirectory : public TForm {
  public:
    std::string Folder;  ///< full path: the proposal, then what was chosen
};

}  // namespace tml

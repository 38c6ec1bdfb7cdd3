#pragma once

#include "base/Stringlist.h"
#include "windows/Controls.h"

namespace tml {

/// Edits a list of strings as lines, under a caption of the caller's.
class TfrmStringList : public TForm {
  public:
    TfrmStringList(const std::string& caption, TStringList lines) : Lines(std::move(lines)) {
        Name = "frmStringList";
        Caption = caption;
    }

    TStringList Lines;
};

}  // namespace tml

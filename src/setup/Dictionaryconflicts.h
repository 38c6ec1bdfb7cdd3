#pragma once

#include <string>
#include <vector>

#include "tables/Dictionarylearning.h"
#include "windows/Controls.h"
#include "windows/Grid.h"

namespace tml {

/// Lists the texts that have several translations after learning.
class TfrmDictionaryConflicts : public TForm {
  public:
    explicit TfrmDictionaryConflicts(std::vector<TLearnConflict> conflicts);
    TfrmDictionaryConflicts(const TfrmDictionaryConflicts&) = delete;
    TfrmDictionaryConflicts& operator=(const TfrmDictionaryConflicts&) = delete;

    TGrid grConflicts;
    std::string lblConflicts;

    void btCloseClick() { Close(mrOk); }

  private:
    std::string Cell(int conflict, int column) const;

    std::vector<TLearnConflict> conflicts_;
};

}  // namespace tml

#pragma once

#include <cstddef>
#include <string>

#include "expert/Context.h"
#include "expert/Placement.h"

namespace tml {

/// Shows what the last scan passed over, and why.
class TfrmSkippedStrings : public TForm {
  public:
    explicit TfrmSkippedStrings(TContext& context);

    /// A row per skipped string, in the order of the scan: the caption is its line (1-based), the first
    /// sub-item its text, the second, which no column shows, its offset.
    TListView lvStrings;
    std::string lblReason;   ///< of the selected row, in words
    std::string memPreview;  ///< the source lines around the selected row
    /// The selected row's own line in memPreview, byte offsets.
    std::size_t SelBegin = 0, SelEnd = 0;
    std::string StatusPanel;  ///< the number of rows
    TPlacement Placement;

    /// Fills the list from the last scan, with the lines of the code editor's text.
    void FormShow() override;
    void FormClose() override;
    /// Shows the reason and the surroundings of a row (0-based).
    void lvStringsSelectItem(int row);
    void btCloseClick();

  private:
    void Fill(IOTASourceEditor& editor);

    TContext& context_;
};

/// The command "Excluded" of the review.
void ViewSkipped(TContext& context);

}  // namespace tml

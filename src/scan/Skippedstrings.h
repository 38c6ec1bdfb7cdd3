#pragma once

#include <cstddef>
#include <string>

#include "core/Context.h"
#include "core/Placement.h"
#include "scan/Scanmemory.h"
#include "windows/Grid.h"
#include "windows/Listview.h"

namespace tml {

/// Shows what the last scan passed over, and why.
class TfrmSkippedStrings : public TForm {
  public:
    TfrmSkippedStrings(TContext& context, const TScanMemory& memory);

    /// A row per skipped string, in the order of the scan: the caption is its line (1-based), the first
    /// sub-item its text, the second, which no column shows, its offset.
    TListView lvStrings;
    /// How the list is shown: IDs are places in it, 0-based; its current row is the selected one.
    TGrid Table;
    std::string lblReason;   ///< of the selected row, in words
    std::string memPreview;  ///< the source lines around the selected row
    /// The selected row's own line in memPreview, byte offsets.
    std::size_t SelBegin = 0, SelEnd = 0;
    std::string lblNote;      ///< what has come of the way out
    std::string StatusPanel;  ///< the number of rows
    TPlacement Placement;

    /// Fills the list from the last scan, with the lines of the code editor's text, and selects its first
    /// row.
    void FormShow() override;
    void FormClose() override;
    /// Shows the reason and the surroundings of a row (0-based, in the list).
    void lvStringsSelectItem(int row) { Table.SetCurrent(row); }
    void btCloseClick();

    // The way out leads to what has skipped the selected string: to the option that decides its reason, or
    // to its line in the source, where a tag or a comment does.

    /// Caption and hint of its button; both empty while no row is selected.
    std::string WayOutCaption() const;
    std::string WayOutHint() const;
    /// After a change of the options lblNote says what another scan would do; none is run.
    void btWayOutClick();

  private:
    void Fill(IOTASourceEditor& editor);
    void ShowCurrent();
    void Preview(IOTASourceEditor& editor);
    int LineOfRow() const;
    TStringSkipReason ReasonOf(int row) const;
    void OpenOption();
    void ShowInSource();
    /// The strings of the list that the options, as they are now, do not skip.
    int CountTakenUp(IOTASourceEditor& editor) const;

    TContext& context_;
    const TScanMemory& memory_;
};

/// The command "Excluded" of the review.
void ViewSkipped(TContext& context, const TScanMemory& memory);
/// The command of the main window: shows the unit of the last scan and what that has passed over.
void SkippedStrings(TContext& context, TScanMemory& memory);

}  // namespace tml

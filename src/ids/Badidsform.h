#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "core/Context.h"
#include "core/Placement.h"
#include "ids/Idcheck.h"
#include "windows/Actions.h"
#include "windows/Listview.h"

namespace tml {

/// The columns of the list of bad IDs.
enum TBadIDColumn { bcStringID, bcType, bcInfo, bcUse, bcFileName };

class TBadIDRow : public TListRow {
  public:
    explicit TBadIDRow(TBadID bad) : Bad(std::move(bad)) {}
    const TBadID Bad;

    std::string Cell(std::size_t column) const override;
};

/// Lists the IDs on which source and components do not agree. It stays open; where a view still shows it when
/// it goes, it has been closed before.
class TfrmBadIDs : public TForm {
  public:
    explicit TfrmBadIDs(TContext& context);
    ~TfrmBadIDs() override { Close(mrClose); }
    TfrmBadIDs(const TfrmBadIDs&) = delete;
    TfrmBadIDs& operator=(const TfrmBadIDs&) = delete;

    std::string lblTop;
    TListOf<TBadIDRow> lvIDs;
    /// Nobody has made a column of lvIDs wider or narrower yet.
    bool HasDesignWidths() const;
    std::array<std::string, 2> StatusPanels{"Total:", "0"};
    TActions Actions;  ///< the popup menu
    TPlacement Placement;

    void FormShow() override;
    void FormClose() override;

    void Add(std::vector<TBadID> found);
    /// Takes these rows out of the list, by ID; the one behind them is selected.
    void Remove(const std::vector<int>& rows);
    /// Brings the number in the status bar up to date.
    void UpdateStatus();
    /// After a change of the selection.
    void lvIDsChange() { Changed(); }
    void LVIDsDblClick();
    /// Enter does what a double click does.
    void LVIDsKeyDown(TShortCut key);

    // The popup menu.
    bool CanShowSource() const { return lvIDs.FirstSelected() != nullptr; }
    bool CanDelete() const;
    void ShowSource1Click() { LVIDsDblClick(); }
    void Delete1Click();

  private:
    TContext& context_;
};

/// What the commands on string IDs remember: the one window of results.
struct TIDsMemory {
    std::unique_ptr<TfrmBadIDs> BadIDs;
};

/// The command: checks the selected forms, both ways.
void CheckunusedIDs1Click(TContext& context, TIDsMemory& memory);
/// The command: lets the person choose units and checks what they ask of forms' components.
void CheckbadstringIDsinunit1Click(TContext& context, TIDsMemory& memory);

/// The command on a row: the translation editor at an unused ID, the source at another one.
void ViewBadID(TContext& context, const TBadID& bad);
/// The command on the selected rows: deletes their IDs from the components, after a question for each and
/// one more for those that are used or may be, and the rows. The deletions are one step of undo.
void DeleteStringByID(TContext& context, TfrmBadIDs& window);
/// Deletes unused IDs from their forms' components: one step of undo.
void DeleteIDs(TContext& context, const std::vector<TBadID>& unused);

}  // namespace tml

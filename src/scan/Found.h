#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/Context.h"
#include "scan/Foundrows.h"
#include "scan/Replacement.h"
#include "scan/Scanmemory.h"
#include "scan/Series.h"
#include "tables/Table.h"
#include "windows/Actions.h"
#include "windows/Grid.h"

namespace tml {

/// What the review shows.
struct TFoundInput {
    std::string FileName;
    std::shared_ptr<const std::string> Source;
    TCallStyle Style;
    TTable Existing{TStringsType::stStrings};  ///< of the component
    TmlFoundSourceStrings Found;
    std::string IDPrefix = "IDS_";  ///< of the IDs that the scan gives out
    /// Writes the call of a row in the style; empty writes it as the style says.
    std::function<std::string(const TmlFoundSourceString& row, const TCallStyle& style)> CallOf = {};
    /// What rewriting the rows would change, as a unified diff; empty where that is not shown.
    std::function<std::string(const TmlFoundSourceStrings& kept)> DiffOf = {};
    TSeriesPlace Place = {};
};

/// The source lines around a row.
struct TFoundPreview {
    std::string Text;
    std::size_t Begin = 0;  ///< in Text, in bytes, of what the call replaces
    std::size_t End = 0;    ///< behind it
};

/// The review between scanning and rewriting. What is taken among the found rows when it closes with mrOk
/// is written to the source. Rows are known by their places in the order of the source.
class TfrmFound : public TForm {
  public:
    TfrmFound(TContext& context, TScanMemory& memory, TFoundInput input);
    TfrmFound(const TfrmFound&) = delete;
    TfrmFound& operator=(const TfrmFound&) = delete;

    TFoundRows Rows;
    TGrid sgStrings;  ///< the found rows
    TGrid sgDeleted;  ///< the deleted rows
    bool ShowsDeleted = false;
    std::string TableCaption;  ///< which of the grids is in front
    bool NoticeVisible = true;
    int PreviewHeight = 0;  ///< 0: as high as PreviewRows asks for
    std::array<std::string, 3> StatusPanels;
    std::string TakenPanel;    ///< how many of the found rows are taken and left out
    bool ShowsChange = false;  ///< the whole change in place of the lines around the current row
    std::string Change;        ///< as a unified diff, while it is shown
    std::string IDNotice;      ///< what is wrong with the ID that is being typed, "" when nothing is
    TActions Actions;

    /// The grid in front.
    TGrid& Shown() { return ShowsDeleted ? sgDeleted : sgStrings; }
    const TGrid& Shown() const { return ShowsDeleted ? sgDeleted : sgStrings; }
    /// The row that is current in the grid in front, nullptr when there is none.
    const TFoundRow* Current() const;
    /// The source lines around the current row.
    TFoundPreview Preview() const;
    /// The number of lines that a preview has at most.
    int PreviewRows() const;
    /// Why a call cannot stand in the current row's place, "" when it can.
    std::string Advice() const;
    /// The records of the rows taken, in the order of the source.
    TmlFoundSourceStrings Kept() const { return Rows.Kept(); }

    void FormShow() override;
    bool FormCloseQuery() override;
    void FormClose() override;

    /// Shows the rows whose line, ID or text contains the text. Commands work on shown rows only, save those
    /// that go by a text.
    void SetFilter(const std::string& text);
    /// Takes a typed ID for a found row.
    void SetEditText(int row, const std::string& id);
    /// Says in IDNotice what is wrong with an ID while it is typed.
    void CheckEditText(int row, const std::string& id);

    void acDeleteRow();
    void acStartID();
    void acExclude();
    void acMarktoIgnore() { MarkRows(true); }
    void acRemoveIgnoreMark() { MarkRows(false); }
    void acSwitchDeleted();
    void acRestoreDeletedRow();
    /// Shows what the scan has passed over.
    void acViewSkipped();
    void acSelectRow();
    void acInvertSelection();
    void acRemoveSelection();
    /// Selects the rows that have an advice.
    void acSelectAdvised();
    void acDeleteRowsContains();
    void acTypecastPChar();
    /// Leaves the selected rows, or the current one, out, or takes them where one of them is left out.
    void acTakeRow();
    /// Takes every found row, hidden ones too.
    void acTakeAll();
    /// Leaves out every found row that has an advice, hidden ones too.
    void acLeaveAdvised();
    /// Shows the whole change, or the current row's lines again.
    void acShowChange();
    void acUndo();
    void acRedo();
    /// Writes the calls of the selected rows, or of the current one, anew with the method.
    void UseMethod(const std::string& method);
    void HideNotice();

    /// "Modify Source": closes with mrOk once it is confirmed.
    void tbModifyClick();
    /// Gives up, and what is left of a series too.
    void tbCancelClick();
    /// Leaves the unit as it is and goes on with the series: closes with mrIgnore.
    void acSkipUnit();

    // When the commands do something.

    bool HasRow() const { return Current() != nullptr; }
    bool HasFoundRow() const { return HasRow() && !ShowsDeleted; }
    bool HasDeletedRow() const { return HasRow() && ShowsDeleted; }
    bool HasMarkedRow() const { return HasAffected(true); }
    bool HasUnmarkedRow() const { return HasAffected(false); }
    bool HasSelection() const { return Shown().SelectedCount() > 0; }
    bool HasAdvice() const;
    bool HasAdvisedTaken() const;
    bool HasLeftOut() const { return Rows.CountLeftOut() > 0; }
    bool IsInSeries() const { return input_.Place.Count > 1; }
    bool HasChange() const { return static_cast<bool>(input_.DiffOf); }
    bool CanUndo() const { return Rows.CanUndo(); }
    bool CanRedo() const { return Rows.CanRedo(); }

  private:
    void SetUpGrids();
    std::string CellOf(int row, int column) const;
    TGridLook LookOf(int row) const;
    /// The selected found rows, or the current one; none while the deleted rows are in front.
    std::vector<int> AffectedFound() const;
    bool HasAffected(bool marked) const;
    bool Confirm(const std::string& question);
    /// Moves the rows to another place, not selected.
    void Move(const std::vector<int>& rows, TFoundPlace place);
    void LeaveOut(const std::vector<int>& rows, bool leftOut);
    void SetID(int row, const std::string& id);
    void MarkRows(bool mark);
    void SetReplacement(int row, const std::string& replacement, bool givesPointer);
    void ExcludePhrases(const TStringList& phrases);
    /// The phrases that the option did not hold yet, as it holds them.
    TStringList AddToSkipWords(const TStringList& phrases);
    /// What keeps the rows from being written, "" when nothing does.
    std::string FindConflict() const;
    /// The question before anything is written, with what would surprise.
    std::string Question() const;
    /// Ends the step that has changed rows.
    void Done();
    void Update();

    TContext& context_;
    TScanMemory& memory_;
    TFoundInput input_;
};

}  // namespace tml

#pragma once

#include <array>
#include <functional>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/Context.h"
#include "scan/Foundgrid.h"
#include "scan/Scan.h"
#include "scan/Scanmemory.h"
#include "tables/Textmethods.h"

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
};

/// The source lines around a row.
struct TFoundPreview {
    std::string Text;
    std::size_t Begin = 0;  ///< in Text, in bytes, of what the call replaces
    std::size_t End = 0;    ///< behind it
};

class TfrmFound;

/// What a command of the review needs so that it does something.
enum class TFoundNeed { Nothing, Row, FoundRow, DeletedRow, MarkedRow, UnmarkedRow, Selection, Advice };

/// A command of the review.
struct TFoundAction {
    std::string_view Name;
    std::string_view Caption;
    std::string_view ShortCut;
    void (TfrmFound::*Execute)();  ///< nullptr for what the host does: help, and the entries of a menu
    TFoundNeed Need = TFoundNeed::Nothing;
    std::string_view Hint = {};  ///< what it does where the caption does not tell
};

/// The review between scanning and rewriting. What is left among the found rows when it closes with mrOk
/// is written to the source.
class TfrmFound : public TForm {
  public:
    TfrmFound(TContext& context, TScanMemory& memory, TFoundInput input);

    TFoundGrid sgStrings;
    TFoundGrid sgDeleted;
    bool ShowsDeleted = false;
    std::string Filter;  ///< what the shown rows of both grids contain
    std::vector<int> GridCols{60, 100, 250, 290};
    bool NoticeVisible = true;
    int PreviewHeight = 100;
    std::array<std::string, 3> StatusPanels;

    static const std::array<std::string, 4>& Headers();
    static std::span<const TFoundAction> Actions();
    /// The buttons at both ends of the tool bar, whose commands are in no menu.
    static std::span<const TFoundAction> ToolButtons();
    /// The "Use method:" menu itself.
    static const TFoundAction& MethodMenu();
    /// The entries of the "Use method:" menu.
    static std::span<const std::string_view> Methods() { return mlLangGetTextMethods; }

    /// The grid in front.
    TFoundGrid& Shown() { return ShowsDeleted ? sgDeleted : sgStrings; }
    /// What a command is called just now, and its hint.
    std::string CaptionOf(const TFoundAction& action) const;
    std::string HintOf(const TFoundAction& action) const;
    /// Whether it would do something now.
    bool EnabledOf(const TFoundAction& action);
    /// The source lines around the current row.
    TFoundPreview Preview();
    /// Why a call cannot stand in the current row's place, "" when it can.
    std::string Advice();
    /// The records left, in the order of the source.
    TmlFoundSourceStrings Kept() const;

    void FormShow() override;
    bool FormCloseQuery() override;
    void FormClose() override;

    void SelectCell(int row);
    /// Selects rows of the grid in front, or takes them out of the selection.
    void SelectRows(const std::vector<int>& rows, bool selected);
    /// Shows the rows of which a cell contains the text. Commands work on shown rows only.
    void SetFilter(const std::string& text);
    /// Takes a typed ID for a found row.
    void SetEditText(int row, const std::string& id);

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
    /// Writes the calls of the selected rows, or of the current one, anew with the method.
    void UseMethod(const std::string& method);
    void HideNotice();

    /// "Modify Source": closes with mrOk once it is confirmed.
    void tbModifyClick();
    void tbCancelClick();

  private:
    /// The selected rows of a grid, or its current row; none of a grid that is not in front.
    std::vector<TFoundRow*> Affected(TFoundGrid& grid);
    bool Confirm(const std::string& question);
    /// Moves the rows that fit from one grid to the other.
    void Move(TFoundGrid& from, TFoundGrid& to, const std::function<bool(const TFoundRow&)>& fits);
    void SetID(TmlFoundSourceString& record, const std::string& id);
    void SetReplacement(TmlFoundSourceString& record, const std::string& text);
    void MarkRows(bool mark);
    void ExcludePhrases(const TStringList& phrases);
    /// What keeps the rows from being written, "" when nothing does.
    std::string FindConflict() const;
    void Update();

    TContext& context_;
    TScanMemory& memory_;
    TFoundInput input_;
    bool changed_ = false;
};

}  // namespace tml

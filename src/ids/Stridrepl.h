#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/Context.h"
#include "platform/Mlruntime.h"
#include "windows/Actions.h"
#include "windows/Boxes.h"
#include "windows/Listview.h"

namespace tml {

/// A line of a unit that a change of an ID changes.
class TSourceLineRow : public TListRow {
  public:
    TSourceLineRow(int line, std::size_t begin, std::string content, std::string result)
        : Line(line), Begin(begin), Content(std::move(content)), Result(std::move(result)) {}

    const int Line;           ///< 0-based, as it is shown
    const std::size_t Begin;  ///< of the line, byte offset
    const std::string Content;
    std::string Result;

    std::string Cell(std::size_t column) const override;
};

/// Chooses the units that a changed ID is looked for in, then shows the lines of each one by one. It is shown
/// anew for every step.
class TfrmStrReplace : public TForm {
  public:
    /// Lists the units; the current one is to be scanned.
    TfrmStrReplace(TContext& context, TStringList units, const std::string& current);

    enum class TPanel { UnitSelection, FoundLines };
    TPanel Panel = TPanel::UnitSelection;
    std::string btReplaceCaption = "&Next >>";

    // pnUnitSelection: full file names
    TNamesBox lbUnits;
    TNamesBox lbSelectedUnits;
    /// What the lists show of a unit: its path from the project's folder on.
    std::string ShownName(const std::string& unit) const;
    void btAddClick() { Move(lbUnits, lbSelectedUnits, false); }
    void btAddAllClick() { Move(lbUnits, lbSelectedUnits, true); }
    void btRemoveClick() { Move(lbSelectedUnits, lbUnits, false); }
    void btRemoveAllClick() { Move(lbSelectedUnits, lbUnits, true); }
    /// After a change of either selection.
    void lbUnitsClick() { Changed(); }

    // pnFoundLines
    std::string lbUnitName;
    TListOf<TSourceLineRow> lvSourceLines;
    TActions Actions;  ///< its popup menu
    void ShowLines(const std::string& unit, const std::vector<TSourceLineRow>& lines);
    void lvSourceLinesChange() { Changed(); }
    bool HasSelection() const { return lvSourceLines.FirstSelected() != nullptr; }
    bool HasLines() const { return lvSourceLines.Count() > 0; }
    void Delete1Click();
    void Invertselection1Click();
    void Editresultline1Click();

    void btReplaceClick() { Close(mrOk); }
    void btCancelClick() { Close(mrCancel); }
    void sbHelpClick();

  private:
    void Move(TNamesBox& from, TNamesBox& to, bool all);

    TContext& context_;
    std::string folder_;
};

/// The lines of a text that name the ID behind one of the four calls that fetch plain texts, with every
/// quoted ID of the line replaced. Case counts.
std::vector<TSourceLineRow> LinesWithID(std::string_view text, const TLanguage& language,
                                        const std::string& oldID, const std::string& newID);

/// The translation editor has given a string of the form's component another ID: lets the person choose the
/// units in which the calls follow, and the lines of each. What is confirmed is written as one step of undo
/// into the code editor, not to the disk. In the end the uses that are left are listed. EBadInput for an
/// empty ID.
void OnChangeStrID(TContext& context, const std::string& formName, const std::string& oldID,
                   const std::string& newID);
/// The same as the translation editor wants it.
TChangeStrID ChangeStrIDOf(TContext& context);

}  // namespace tml

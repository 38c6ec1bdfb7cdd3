#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Mlruntime.h"
#include "runtime/Transedits.h"
#include "runtime/Transfilter.h"
#include "runtime/Transgrid.h"
#include "runtime/Transmemory.h"
#include "runtime/Transtexts.h"
#include "windows/Actions.h"

namespace tml {

/// A node of the tree: all forms, a form, a table.
struct TTransNode {
    std::string Caption;
    int Level = 0;  ///< 0 for the outermost
    TTransScope Scope;
};

/// The translation editor: a tree of forms and tables beside a grid with a row an entry and a column a
/// language. What a person edits is written when it closes with mrOk, but for IDs that are renamed, which are
/// written at once.
class TfrmTransEditor : public TForm {
  public:
    /// All that it is given must outlive the window. The place is in the first component. registry: where it
    /// keeps what it remembers over the program's end, nullptr for nowhere. Shows progress, which the caller
    /// ends; EmlLangSilent where the person stops it.
    TfrmTransEditor(IMlRuntime& runtime, const std::vector<TmlCustomLang*>& langs,
                    const TTransEditorPlace& place, TChangeStrID onChangeStrID, TTransEditorMemory& memory,
                    IRegistry* registry);
    TfrmTransEditor(const TfrmTransEditor&) = delete;
    TfrmTransEditor& operator=(const TfrmTransEditor&) = delete;

    std::vector<TTransNode> Tree;
    TActions Actions;
    std::string Notice;  ///< what came of the last command, or what is wrong with the filter; "" for nothing
    /// The clipboard, as its texts; the view has it.
    std::function<std::string()> ReadClipboard;
    std::function<void(const std::string&)> WriteClipboard;

    /// Forms, languages, entries and states. A column is a language's index there + 1.
    const TTransTexts& Texts() const { return texts_; }
    /// The components whose forms the editor has changed.
    std::vector<TmlCustomLang*> ChangedLangs() const { return texts_.Changed(); }

    // Tree

    int Node() const { return node_; }
    void SelectNode(int node);
    /// How far a column's language is below a node; of settings, keys and base texts nothing.
    TTransProgress NodeProgress(int node, int column) const;

    // Filter

    const TTransFilter& Filter() const { return filter_; }
    void SetFilter(const TTransFilter& filter);
    /// The rows that there are without it.
    int RowCount() const;
    /// True where the filter is no regular expression, though it shall be one.
    bool IsPatternBroken() const { return isPatternBroken_; }
    /// False where there are no regular expressions.
    bool HasPatterns() const { return library_ != nullptr; }

    // Cells. A place is that of a row among those shown, 0-based.

    /// The rows that are shown, the current cell and the selected ones. Where these are to change, SetCurrent
    /// and Select of the window tell the view.
    const TTransGrid& Grid() const { return grid_; }
    int ColumnCount() const { return static_cast<int>(texts_.Languages().size()) + 1; }
    /// "Key", then the languages.
    std::string ColumnCaption(int column) const;
    /// The form of a row.
    const std::string& FormName(int place) const { return texts_.FormOf(grid_.RowAt(place)).Name; }
    /// The rows may be those of several forms.
    bool ShowsForms() const { return Tree[static_cast<std::size_t>(node_)].Scope.Form < 0; }
    /// The text that a row is translated from, and the column that it stands in; forms may differ in it.
    const std::string& Base(int place) const { return texts_.Find(grid_.RowAt(place))->Base(); }
    int BaseColumn(int place) const;
    /// The first column of a language that anything is translated into.
    int FirstTranslation() const;
    /// What a cell holds, and its state: none for keys, base texts and settings.
    const std::string& Text(int place, int column) const { return texts_.Text(grid_.RowAt(place), column); }
    std::optional<TTextState> State(int place, int column) const;
    /// The base text that had been translated, where a translation is in doubt; else "".
    std::string FormerBase(int place, int column) const;
    bool IsEditable(int place, int column) const;
    /// See TTransGrid.
    void SetCurrent(int place, int column);
    void Select(const TTransRange& range);

    // Edits. Each is a step of undo, with all cells that it changes.

    /// Takes a typed text; in column 0 a new ID for an entry of "Strings", which is asked for again while
    /// something is wrong with it.
    void SetText(int place, int column, const std::string& text);
    /// Says of the selected translations in which state they are; see WithState.
    void SetState(TTextState state);

    void acNextUntranslated() { GoToUntranslated(1); }
    void acPreviousUntranslated() { GoToUntranslated(-1); }
    /// Writes the base text into the selected translations.
    void acCopyBase();
    /// The selected translations are done; goes on to the next untranslated one.
    void acConfirm();
    /// Writes the base text into the empty ones among the selected translations, or, where one cell is
    /// selected, of all that are shown in its language.
    void acFillFromBase();
    /// Fills the same ones from the project's dictionary.
    void acFillFromDictionary();
    /// What is missing in the language gets the text that a selected translation with the same base text has,
    /// in all forms and whether it is shown or not.
    void acTranslateEqual();
    void acClear();
    void acMarkMissing() { SetState(TTextState::Missing); }
    void acMarkStale() { SetState(TTextState::Stale); }
    void acMarkTouched() { SetState(TTextState::Touched); }
    void acMarkDone() { SetState(TTextState::Done); }
    void acCopy();
    /// From the first selected cell on; a single text goes into every selected cell.
    void acPaste();
    void acUndo();
    void acRedo();
    void acAddID();
    void acRenameID();
    void acDeleteID();
    /// Writes and closes, too: the source stands behind the window. EmlLangSilent where there is nothing to
    /// be shown.
    void acJumpToSource();
    void acAbout();

    // When the commands do something.

    bool HasRow() const { return grid_.HasRow(); }
    bool HasTranslation() const;
    bool HasID() const;
    bool CanAddID() const { return StringsTable() >= 0; }
    bool CanJump() const { return HasID() && runtime_.NavigateToSource; }
    bool CanUndo() const { return texts_.CanUndo(); }
    bool CanRedo() const { return texts_.CanRedo(); }
    bool HasAbout() const { return static_cast<bool>(runtime_.ShowAboutBox); }

    /// Writes and closes. EmlLangSilent, and nothing is written, where the person stops it.
    void btnOKClick();
    void btnCancelClick() { Close(mrCancel); }
    bool FormCloseQuery() override;
    void FormClose() override;

  private:
    void BuildTree(const TTransEditorPlace& place);
    /// Where the place leads, else where the person was last.
    void Open(const TTransEditorPlace& place);
    void Return();
    int NodeOf(const TTransScope& scope) const;
    int FormOf(const std::string& name) const;
    /// -1 for a table that the form has not.
    int TableOf(int form, std::string_view property) const;
    int ColumnOf(const std::string& language) const;
    void Show(TTransRow row, int column);
    void RememberCurrent();
    /// Assigns the rows that pass the filter.
    void Arrange();

    /// Ends the step and tells the view.
    void Done(const std::string& notice = {});
    void Follow(const TTransSwapped& swapped);
    /// step: 1 for the next one, -1 for the one before, round the ends.
    void GoToUntranslated(int step);
    std::vector<TTransCell> Selected() const { return SelectedCells(grid_); }
    /// Where one cell is selected, all that are shown in its language.
    std::vector<TTransCell> SelectedOrShown() const;
    bool IsOfStrings(TTransRow row) const;
    /// The table "Strings" that takes new IDs: the current row's form's, else the node's; -1 for none.
    int StringsTable() const;
    /// What is wrong with an ID for an entry, "" for nothing.
    std::string ProblemOf(const std::string& id, TTransRow row) const;
    /// Asks about an ID that is hard to read in a source.
    bool IsWanted(const std::string& id) const;
    /// The ID for an entry; while something is wrong with it, asks for another one. None where the person
    /// gives up.
    std::optional<std::string> ValidID(const char* caption, std::string id, TTransRow row) const;
    void Rename(TTransRow row, const std::string& typed);
    std::unique_ptr<ICommandScope> BeginCommand(const std::string& title) const;

    IMlRuntime& runtime_;
    TChangeStrID onChangeStrID_;
    TTransEditorMemory& memory_;
    IRegistry* registry_;
    ICommonLibrary* library_;
    TTransTexts texts_;
    TTransFilter filter_;
    int node_ = 0;
    TTransGrid grid_;
    bool isPatternBroken_ = false;
    bool hasRenamed_ = false;
};

}  // namespace tml

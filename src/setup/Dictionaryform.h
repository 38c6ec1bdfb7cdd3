#pragma once

#include <string>
#include <vector>

#include "platform/Dictionarytool.h"
#include "setup/Dictionaryforms.h"
#include "setup/Dictionarymemory.h"
#include "tables/Dictionarysteps.h"
#include "windows/Actions.h"
#include "windows/Boxes.h"
#include "windows/Grid.h"

namespace tml {

/// Shows and edits a dictionary: two of its languages side by side.
class TfrmDictionary : public TForm {
  public:
    /// Context and tool must outlive the window, which shows nothing before Open. Filled and learned from are
    /// the selected rows of the list in front, without a selection all of them.
    TfrmDictionary(TContext& context, IDictionaryTool& tool);
    TfrmDictionary(const TfrmDictionary&) = delete;
    TfrmDictionary& operator=(const TfrmDictionary&) = delete;

    std::string FileName;      ///< "" for a new dictionary without a name
    TChoiceBox cbLanguage;     ///< of the left column
    TChoiceBox cbTranslation;  ///< of the right column
    TGrid grEntries;           ///< a row an entry
    std::string memText;       ///< of the current entry, with LF line breaks
    std::string memTranslation;
    TActions Actions;
    std::string Status;  ///< how many entries there are, and what came of the last command

    const TDictionary& Dictionary() const { return dictionary_; }
    bool IsModified() const { return !history_.IsSaved(); }
    bool CanUndo() const { return history_.CanUndo(); }
    bool CanRedo() const { return history_.CanRedo(); }
    bool HasEntry() const { return grEntries.Current() >= 0; }
    bool HasLanguages() const { return dictionary_.Languages.Count() > 1; }

    /// Loads a file; with "" a new dictionary with the languages of the forms begins, as it does under the
    /// name of a file that is not there. What is wrong with a file is told; the dictionary that is open
    /// stays, and without one a new one without a name begins.
    void Open(const std::string& fileName);
    void SetFilter(const std::string& text) { grEntries.SetFilter(text); }
    void cbLanguageChange();
    /// Take what is typed for the current entry.
    void memTextChange(const std::string& text);
    void memTranslationChange(const std::string& text);

    void acNew();
    void acOpen();
    void acSave();
    void acSaveAs();
    void acUndo() { Show(history_.Undo(dictionary_)); }
    void acRedo() { Show(history_.Redo(dictionary_)); }
    /// A text that is there already leads to its entry.
    void acAddEntry();
    void acDeleteEntries();
    void acAddLanguage();
    /// Fills a language of the forms, with a preview.
    void acFill();
    /// Takes the translations of the forms over; lists texts with several ones.
    void acLearn();

    void btCloseClick() { Close(mrOk); }
    /// Asks whether changes are to be saved.
    bool FormCloseQuery() override;

  private:
    void SetUpGrid();
    void Take(TDictionary dictionary, const std::string& fileName);
    TStringList NewLanguages() const;
    void ListEntries();
    void ShowEntry();
    /// Lists the entries anew, selects these and says what has come of it.
    void Show(const std::vector<int>& entries, const std::string& notice = {});
    void SetText(int entry, int language, const std::string& text);
    void Tell(const std::string& notice);
    bool MayLose();
    void SaveTo(const std::string& fileName);
    std::vector<TFormRow*> Rows() const;
    /// The forms of Rows that are translated; without one it is told.
    std::vector<TFormTables> Forms();
    void TellLearned(TLearned learned, std::size_t forms);

    TContext& context_;
    IDictionaryTool& tool_;
    TDictionary dictionary_;
    TDictionaryHistory history_;
};

/// The tool, created when it is asked for first: the external one, else the system's own.
IDictionaryTool& DictionaryTool(TContext& context, TDictionaryMemory& memory);

/// The command: shows the project's dictionary in the dictionary tool.
void Dictionary1Click(TContext& context, TDictionaryMemory& memory);

}  // namespace tml

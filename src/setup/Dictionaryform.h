#pragma once

#include <string>
#include <vector>

#include "platform/Dictionarytool.h"
#include "setup/Dictionaryforms.h"
#include "setup/Dictionarymemory.h"
#include "windows/Actions.h"
#include "windows/Boxes.h"
#include "windows/Grid.h"

namespace tml {

/// Shows and edits a dictionary: two of its languages side by side.
class TfrmDictionary : public TForm {
  public:
    /// Context and tool must outlive the window. Filled and learned from are the selected rows of the list in
    /// front, without a selection all of them.
    TfrmDictionary(TContext& context, IDictionaryTool& tool);
    TfrmDictionary(const TfrmDictionary&) = delete;
    TfrmDictionary& operator=(const TfrmDictionary&) = delete;

    std::string FileName;      ///< "" for a new dictionary
    TChoiceBox cbLanguage;     ///< of the left column
    TChoiceBox cbTranslation;  ///< of the right column
    TGrid grEntries;           ///< a row an entry
    std::string memText;       ///< of the current entry, with LF line breaks
    std::string memTranslation;
    TActions Actions;
    std::string Status;  ///< how many entries there are, and what came of the last command

    const TDictionary& Dictionary() const { return dictionary_; }
    bool IsModified() const { return modified_; }
    bool HasEntry() const { return grEntries.Current() >= 0; }
    bool HasLanguages() const { return dictionary_.Languages.Count() > 1; }

    /// Loads a file; with "" a new dictionary with the languages of the forms begins. What is wrong with the
    /// file is told, and a new dictionary begins, too.
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
    void Take(TDictionary dictionary, const std::string& fileName);
    void ListEntries();
    void ShowEntry();
    void SetText(int entry, int language, const std::string& text);
    void Edited(const std::string& notice = {});
    void Tell(const std::string& notice);
    bool MayLose();
    void SaveTo(const std::string& fileName);
    std::vector<TFormRow*> Rows() const;

    TContext& context_;
    IDictionaryTool& tool_;
    TDictionary dictionary_;
    bool modified_ = false;
};

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

/// The tool, created when it is asked for first: the external one, else the system's own.
IDictionaryTool& DictionaryTool(TContext& context, TDictionaryMemory& memory);

/// The command: shows the project's dictionary in the dictionary tool.
void Dictionary1Click(TContext& context, TDictionaryMemory& memory);

}  // namespace tml

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "setup/Dictionaryforms.h"
#include "windows/Actions.h"
#include "windows/Boxes.h"
#include "windows/Grid.h"

namespace tml {

/// The columns of the preview.
enum TDictionaryFillColumn { dfForm, dfKey, dfBase, dfOld, dfNew, dfState };

/// Fills a language of forms from a dictionary: how it looks texts up, and a preview of what is written, of
/// which rows can be left out.
class TfrmFillDictionary : public TForm {
  public:
    /// The dictionary must outlive the window; fileName is what messages call it, settings (nullptr for none)
    /// have the options that it begins with.
    TfrmFillDictionary(std::vector<TFormTables> forms, const TDictionary& dictionary, std::string fileName,
                       ImlLangProjectSettings* settings);
    TfrmFillDictionary(const TfrmFillDictionary&) = delete;
    TfrmFillDictionary& operator=(const TfrmFillDictionary&) = delete;

    TChoiceBox cbLanguage;     ///< of the forms
    TChoiceBox cbBase;         ///< the dictionary's languages
    TChoiceBox cbTranslation;  ///< likewise
    TDictionaryOptions Options;
    TGrid grFills;
    TActions Actions;
    std::string Status;    ///< what is written, and what is not for which reason
    std::string Problems;  ///< forms that cannot be filled or written and why, a line each
    /// Fills forms and tells of those that failed, which it gives.
    std::function<TFailedFills(const std::vector<TFormFills>& taken)> OnFill;

    /// To be called when a box or an option has changed.
    void OptionsChange();
    void cbLanguageChange();
    void SetFilter(const std::string& text) { grFills.SetFilter(text); }
    void acTake() { SetTaken(true); }
    void acLeaveOut() { SetTaken(false); }
    void acTakeAll();
    bool HasRow() const { return grFills.Current() >= 0; }
    bool HasTaken() const;
    /// What the person has taken, form by form.
    std::vector<TFormFills> Taken() const;

    /// Fills what is taken and closes; a form that failed stays, with what was chosen for it.
    void btFillClick();
    /// How many translations btFillClick has filled.
    int Filled() const { return filled_; }
    void btCancelClick() { Close(mrCancel); }

  private:
    struct TRow {
        std::size_t Form;
        std::size_t Fill;
        bool IsTaken = true;
    };

    void SetUpGrid();
    /// The languages of the forms; the first one that the dictionary has is chosen.
    TChoiceBox LanguageBox() const;
    void PlanForms();
    void DropWritten(const std::vector<TFormFills>& taken, const TFailedFills& failed);
    void SetTaken(bool taken);
    void ShowStatus();
    std::string Cell(int row, int column) const;
    const TDictionaryFill& FillOf(const TRow& row) const { return fills_[row.Form].Fills[row.Fill]; }

    std::vector<TFormTables> forms_;
    const TDictionary& dictionary_;
    std::string fileName_;
    std::vector<TFormFills> fills_;
    std::vector<TRow> rows_;
    int filled_ = 0;
};

}  // namespace tml

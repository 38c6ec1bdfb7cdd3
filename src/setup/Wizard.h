#pragma once

#include <string>
#include <vector>

#include "setup/Setuprun.h"
#include "windows/Boxes.h"
#include "windows/Grid.h"

namespace tml {

enum class TWizardPage { Forms, Component, Languages, Links, Exclusions, Strings, Summary, Outcome };
inline constexpr int kWizardPages = 8;

/// The translation wizard: sets up many forms in one pass and shows its plan before it acts.
class TfrmWizard : public TForm {
  public:
    /// Reads all forms of the project; those of the rows are chosen. EmlLangSilent when the person stops it.
    TfrmWizard(TContext& context, TScanMemory& memory, const std::vector<TFormRow*>& rows);
    TfrmWizard(const TfrmWizard&) = delete;
    TfrmWizard& operator=(const TfrmWizard&) = delete;

    TWizardPage Page = TWizardPage::Forms;
    std::string PageTitle;
    std::string PageHint;

    TGrid sgForms;         ///< the forms of the project, by their places in its list
    std::string lblForms;  ///< how many are chosen

    TChoiceBox cbClass;
    std::string edName;
    bool ckbPackage = false;
    bool PackageVisible = false;  ///< the project requires packages, and this one not yet

    TNamesBox lbLanguages;
    bool ckbGiveUp = false;

    TChoiceBox cbDispatcher;  ///< the first entry stands for none
    TChoiceBox cbContainer;
    bool ContainerEnabled = false;

    TStringList memDoNotTranslate;
    TStringList memExcludedProperties;
    TStringList memSmartExcludeProps;
    TStringList memProperties;
    std::string lblProperties;

    bool ckbStrings = false;
    TGrid sgStrings;         ///< the strings found in all units
    std::string lblStrings;  ///< how many move

    TGrid sgPlan;         ///< the forms of the plan, by their places in it
    std::string memPlan;  ///< what is done to the current one, or what changes in the files
    bool ShowsChange = false;
    std::string memReport;  ///< what has come of it

    bool BackEnabled() const;
    bool NextEnabled() const;
    bool FinishEnabled() const;
    bool IsDone() const { return Page == TWizardPage::Outcome; }
    bool ScanEnabled() const { return ckbStrings; }
    bool HasStrings() const { return !strings_.empty(); }
    bool HasPlan() const { return !plan_.Forms.empty(); }

    void btBackClick();
    /// Works out the plan before it is shown. EBadInput for wishes that fit no form, and the page stays.
    void btNextClick();
    /// Runs what the summary shows; then it closes the window.
    void btFinishClick();
    void btCancelClick() { Close(mrCancel); }

    /// Chooses the selected forms, or leaves them out where one of them is chosen.
    void acTakeForms();
    void acTakeAllForms();
    void cbClassChange();
    void btConfigureClick();
    void ckbStringsChange() { Update(); }
    /// Looks for the strings of the chosen forms' units.
    void btScanClick();
    /// Has the selected strings moved, or leaves them where one of them is moved.
    void acTakeStrings();
    /// Shows the change in the files of the current form, or the steps again.
    void acShowChange();
    void btSaveReportClick();

  private:
    /// A string by its form's place in the plan and its own there.
    struct TPlace {
        std::size_t Form;
        std::size_t String;
    };

    void SetUpGrids();
    void ReadForms(const std::vector<TFormRow*>& rows);
    void SetUpBoxes(const TSetupWishes& wishes);
    std::string FormCell(int row, int column) const;
    std::string StringCell(int row, int column) const;
    std::string PlanCell(int row, int column) const;
    TGridLook StringLook(int row) const;
    TSetupString& StringAt(int row);
    const TSetupString& StringAt(int row) const;
    TSetupWishes Wishes() const;
    void MakePlan();
    void ListStrings();
    bool AgreesToLoss() const;
    void Run();
    void GoTo(TWizardPage page);
    void ShowPlan();
    bool IsTaken(int row) const;
    int CountTakenForms() const;
    void Update();

    TContext& context_;
    TScanMemory& memory_;
    std::vector<TFormSetup> forms_;  ///< as they are, in the order of the list
    std::vector<bool> taken_;        ///< of these
    TSetupPlan plan_;
    std::vector<TPlace> strings_;
};

/// The command "&Wizard": on the selected forms.
void Wizard1Click(TContext& context, TScanMemory& memory);
/// The command "&Wizards": on all forms.
void Wizards1Click(TContext& context, TScanMemory& memory);

}  // namespace tml

#pragma once

#include <string>

#include "core/Context.h"
#include "windows/Boxes.h"

namespace tml {

/// Edits the user's settings.
class TfrmOptions : public TForm {
  public:
    /// Fills itself from the settings. A default component that is none yet is set on the way.
    explicit TfrmOptions(TContext& context);

    /// The pages: "General", "Source Strings", "Exclude && Skip".
    enum TPage { General, SourceStrings, ExcludeAndSkip };
    TPage ActivePage = General;
    TPage FirstPage = General;  ///< in front when the window is shown

    // General
    TChoiceBox cbMenuSection;
    TShortCut hkShortCut = 0;
    TChoiceBox cbDefaultComp;
    bool ckbOpenAllForms = false;
    TNamesBox lbLanguages;
    std::string edNumLang = "2";

    // Source Strings
    std::string edPreviewLines = "5";
    std::string edIgnoredLength = "1";
    TChoiceBox cbGetTextMethod;
    std::string edCommentsLength = "0";
    bool CommentsLengthEnabled = true;  ///< label, edit and its two buttons
    bool ckbAddFormName = false;
    bool ckbNoComments = false;
    std::string edHCPrefix;
    bool ckbIDsFromTexts = false;  ///< "Ma&ke IDs from the texts"
    std::string edCnstPrefix;
    int rgPermanentPart = 0;  ///< 0 "&Don't Change", 1 "&All UPPERCASE"
    bool ckbEmptyConsts = false;

    // Exclude & Skip
    std::string edExcludeChars;
    TStringList memSkipLines;
    TStringList memSkipWords;
    bool ckbUseRegExp = false;
    bool RegExpEnabled = false;

    void FormShow() override { ShowPage(FirstPage); }
    /// The side buttons.
    void ShowPage(TPage page);
    /// Ctrl+Tab.
    void NextPage();

    // The buttons beside the numbers: step is 1 or -1.
    void StepNumLang(int step);
    void StepPreviewLines(int step);
    void StepIgnoredLength(int step);
    void StepCommentsLength(int step);
    /// Takes a typed length; anything but digits is refused.
    void edIgnoredLengthChange(const std::string& text);

    void ckbNoCommentsClick();
    void memSkipWordsChange();

    void btAddClick();
    void btRenameClick();
    void btDeleteClick();
    void btMoveUpClick();
    void btMoveDownClick();

    /// Stores every setting and closes. EConvertError for a number that is none: what comes before it in
    /// the order of storing is stored then, and the window stays open.
    void btOKClick();
    void btCancelClick();

  private:
    void FillGeneral();
    void FillSourceStrings();
    void FillExcludeAndSkip();
    void CheckRegExp();
    /// False, and the person is told, for a prefix that cannot stand in a source.
    bool CheckPrefixes();
    void Store();

    TContext& context_;
};

/// The command "&Options...".
void sbOptionsClick(TContext& context);

/// The same, opened at the page with the control of this name, which has the focus; at the first page where
/// there is none.
void OpenOptionsAt(TContext& context, const std::string& control);

}  // namespace tml

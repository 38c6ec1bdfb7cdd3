#pragma once

#include <string>

#include "core/Context.h"
#include "windows/Boxes.h"

namespace tml {

class TmlLangProjectSettings;

/// Edits the translation settings of the project.
class TfrmProjectTranslationSettings : public TForm {
  public:
    TfrmProjectTranslationSettings(TContext& context, TmlLangProjectSettings& settings);

    bool ShowsDictionaryPage = true;
    std::string edDefaultDictionary;
    std::string cbDefaultLanguage;
    TStringList DictionaryLanguages;  ///< offered by cbDefaultLanguage
    std::string DictionaryNote;       ///< why DictionaryLanguages is empty, "" where it is not
    bool LanguageWarning = false;     ///< "Default language not in Dictionary!"
    bool ckbAskForDictionary = false;
    bool ckbCaseSensitive = false;
    bool ckbSkipAmpersand = false;
    bool ckbOverwriteExisting = false;
    bool ckbForceEmpties = false;
    bool ckbParseMultilines = false;
    std::string edDefTranslationFile;
    TChoiceBox cbDefFormForUnits;
    TChoiceBox cbDefFormForDispatcher;
    TChoiceBox cbDefFormForCommonContainer;

    void FormShow() override;
    /// Ctrl+Tab, and the buttons under "Sections".
    void SwitchPage();
    /// Loads the dictionary's languages where the text names an existing file.
    void edDefaultDictionaryChange(const std::string& text);
    void cbDefaultLanguageChange(const std::string& text);
    /// "..." beside either box: asks for a file and puts it into the box.
    void ChooseDictionary();
    void ChooseTranslationFile();
    /// Writes all options back and saves the file. Where that fails the window stays open, and no option has
    /// changed.
    void btOKClick();
    void btCancelClick();

  private:
    /// Full name of the dictionary in its box, "" for none.
    std::string DictionaryFile() const;
    void ReadLanguages();
    void CheckLanguage();

    TContext& context_;
    TmlLangProjectSettings& settings_;
};

/// The languages that the head of an XML dictionary lists. The closing tag stays attached to each, as
/// every reader of these lists expects.
TStringList DictionaryLanguagesOf(const TStringList& lines);

}  // namespace tml

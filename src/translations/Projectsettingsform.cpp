#include "translations/Projectsettingsform.h"

#include <optional>

#include "base/Codedtext.h"
#include "base/Errors.h"
#include "base/Utf8.h"
#include "core/Formrows.h"
#include "platform/Dictionarytool.h"
#include "translations/Projectsettings.h"
#include "translations/Translationdialogs.h"

namespace tml {
namespace {

constexpr std::string_view kLanguage = "<LANGUAGE>";
constexpr std::string_view kLanguageEnd = "</LANGUAGE>";

constexpr const char* kUnknownLanguages = "What languages a .dic file has is not known here.";
constexpr const char* kNoLanguages = "This dictionary names no languages.";

std::optional<std::string> AskForFile(TContext& context, const std::string& current, const char* defaultExt,
                                      const char* filter) {
    TOpenDialog dialog;
    dialog.Name = "odSelectFile";
    dialog.Caption = "Select file name...";
    dialog.DefaultExt = defaultExt;
    dialog.Filter = filter;
    if (!current.empty()) dialog.Files = {current};
    if (context.Dialogs().ShowModal(dialog) != mrOk || dialog.Files.empty()) return std::nullopt;
    return dialog.Files.front();
}

}  // namespace

TStringList DictionaryLanguagesOf(const TStringList& lines) {
    TStringList languages;
    bool inHead = false;
    for (const std::string& line : lines) {
        if (inHead && line == "</HEAD>") break;
        if (inHead && line.starts_with(kLanguage)) {
            // As many bytes as the place of the closing tag, counted from 1: with the tag, on purpose.
            const std::size_t end = line.find(kLanguageEnd);
            languages.Add(line.substr(kLanguage.size(), end == std::string::npos ? 0 : end + 1));
        }
        inHead = inHead || line == "<HEAD>";
    }
    return languages;
}

TfrmProjectTranslationSettings::TfrmProjectTranslationSettings(TContext& context,
                                                               TmlLangProjectSettings& settings)
    : context_(context), settings_(settings) {
    Name = "frmProjectTranslationSettings";
    Caption = "Project Translation Settings";
    const auto text = [&](const char* name) { return std::get<std::string>(settings_.GetOptionValue(name)); };
    const auto flag = [&](const char* name) { return std::get<bool>(settings_.GetOptionValue(name)); };
    try {
        edDefaultDictionaryChange(text("DefaultDictionary"));
    } catch (const EFileError& error) {
        // The window is where another dictionary is chosen: it opens all the same.
        context_.Dialogs().MessageDlg(error.what(), TMsgDlgType::mtWarning, {mrOk});
    }
    cbDefaultLanguageChange(text("DictionaryBaseLanguage"));
    ckbAskForDictionary = !flag("DontAskForDictionary");
    // Bound straight to the option, although the caption reads the other way: on purpose.
    ckbCaseSensitive = flag("DictionaryIgnoreCase");
    ckbSkipAmpersand = flag("DictionarySkipAmpersands");
    ckbOverwriteExisting = flag("DictionaryOverwriteExisting");
    ckbForceEmpties = flag("DictionaryForceEmpties");
    ckbParseMultilines = flag("DictionaryParseMultilines");
    edDefTranslationFile = text("DefaultTranslationFileName");
    cbDefFormForUnits = FormsBox(context_, text("DefaultFormForUnits"));
    cbDefFormForDispatcher = FormsBox(context_, text("DispatcherForm"));
    cbDefFormForCommonContainer = FormsBox(context_, text("CommonContainerForm"));
}

void TfrmProjectTranslationSettings::FormShow() {
    ShowsDictionaryPage = true;
    Changed();
}

void TfrmProjectTranslationSettings::SwitchPage() {
    ShowsDictionaryPage = !ShowsDictionaryPage;
    Changed();
}

void TfrmProjectTranslationSettings::edDefaultDictionaryChange(const std::string& text) {
    edDefaultDictionary = text;
    Changed();
    const auto info = text.empty() ? std::nullopt : context_.Host.Files->Stat(DictionaryFile());
    if (!info || info->IsFolder) return;
    ReadLanguages();
    CheckLanguage();
}

std::string TfrmProjectTranslationSettings::DictionaryFile() const {
    return DictionaryFileOf(settings_, edDefaultDictionary);
}

void TfrmProjectTranslationSettings::ReadLanguages() {
    // A binary dictionary belongs to the external tool alone.
    const bool isBinary = SameText(ExtensionOf(edDefaultDictionary), ".dic");
    const std::string bytes = isBinary ? std::string() : context_.Host.Files->Read(DictionaryFile());
    DictionaryLanguages = DictionaryLanguagesOf(TStringList::FromText(TCodedText::TextOf(bytes)));
    DictionaryNote = !DictionaryLanguages.Empty() ? "" : isBinary ? kUnknownLanguages : kNoLanguages;
}

void TfrmProjectTranslationSettings::cbDefaultLanguageChange(const std::string& text) {
    cbDefaultLanguage = text;
    CheckLanguage();
}

void TfrmProjectTranslationSettings::ChooseDictionary() {
    const auto file = AskForFile(context_, DictionaryFile(), "dic",
                                 "Dictionaries (*.dic)|*.dic|XML dictionaries (*.dix)|*.dix");
    if (file) edDefaultDictionaryChange(*file);
}

void TfrmProjectTranslationSettings::ChooseTranslationFile() {
    const auto file = AskForFile(context_, edDefTranslationFile, "mlb", kBothTranslations);
    if (file) edDefTranslationFile = *file;
    Changed();
}

void TfrmProjectTranslationSettings::CheckLanguage() {
    LanguageWarning = !cbDefaultLanguage.empty() && !DictionaryLanguages.Empty() &&
                      DictionaryLanguages.IndexOf(cbDefaultLanguage) < 0;
    Changed();
}

void TfrmProjectTranslationSettings::btOKClick() {
    settings_.SaveOptions({{"DefaultDictionary", edDefaultDictionary},
                           {"DictionaryBaseLanguage", cbDefaultLanguage},
                           {"DontAskForDictionary", !ckbAskForDictionary},
                           {"DictionaryIgnoreCase", ckbCaseSensitive},
                           {"DictionarySkipAmpersands", ckbSkipAmpersand},
                           {"DictionaryParseMultilines", ckbParseMultilines},
                           {"DictionaryOverwriteExisting", ckbOverwriteExisting},
                           {"DictionaryForceEmpties", ckbForceEmpties},
                           {"DefaultTranslationFileName", edDefTranslationFile},
                           {"DefaultFormForUnits", cbDefFormForUnits.Text()},
                           {"DispatcherForm", cbDefFormForDispatcher.Text()},
                           {"CommonContainerForm", cbDefFormForCommonContainer.Text()}});
    Close(mrOk);
}

void TfrmProjectTranslationSettings::btCancelClick() {
    Close(mrCancel);
}

}  // namespace tml

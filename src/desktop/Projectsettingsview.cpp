#include "desktop/Projectsettingsview.h"

#include "desktop/Icons.h"
#include "desktop/Texts.h"
#include "ui_Projectsettingsview.h"

namespace tml {

TProjectSettingsView::TProjectSettingsView(TfrmProjectTranslationSettings& form,
                                           const TViewServices& services)
    : form_(form), ui_(std::make_unique<Ui::Projectsettingsview>()), binder_(services.Runner) {
    ui_->setupUi(this);
    BindPages();
    BindDictionary();
    BindProject();
    const auto help = [&form, &services] { services.ShowHelp(form.Name); };
    binder_.Click(ui_->btOK, [&form] { form.btOKClick(); });
    binder_.Click(ui_->btCancel, [&form] { form.btCancelClick(); });
    binder_.Click(ui_->btHelp, help);
    binder_.Keys(this, QKeySequence::HelpContents, help);
}

TProjectSettingsView::~TProjectSettingsView() = default;

void TProjectSettingsView::BindPages() {
    ui_->sbDictionary->setIcon(PictureOf("languages"));
    ui_->sbProject->setIcon(PictureOf("project"));
    binder_.OneOf(
        {ui_->sbDictionary, ui_->sbProject}, [this] { return form_.ShowsDictionaryPage ? 0 : 1; },
        [this](int) { form_.SwitchPage(); });
    binder_.Show([this] { ui_->pages->setCurrentIndex(form_.ShowsDictionaryPage ? 0 : 1); });
    binder_.Keys(this, Qt::CTRL | Qt::Key_Tab, [this] { form_.SwitchPage(); });
}

void TProjectSettingsView::BindDictionary() {
    binder_.Text(ui_->edDefaultDictionary, form_.edDefaultDictionary,
                 [this](const std::string& text) { form_.edDefaultDictionaryChange(text); });
    binder_.Click(ui_->btDictionary, [this] { form_.ChooseDictionary(); });
    // A language is taken as it is typed, not completed to one of the dictionary's.
    ui_->cbDefaultLanguage->setCompleter(nullptr);
    binder_.TextOrChoice(ui_->cbDefaultLanguage, form_.DictionaryLanguages, form_.cbDefaultLanguage,
                         [this](const std::string& text) { form_.cbDefaultLanguageChange(text); });
    ui_->languageWarning->setPixmap(PictureOf("advice").pixmap(16));
    QSizePolicy keepsItsPlace = ui_->languageWarning->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    ui_->languageWarning->setSizePolicy(keepsItsPlace);
    binder_.Show([this] { ui_->languageWarning->setVisible(form_.LanguageWarning); });
    binder_.Label(ui_->dictionaryNote, form_.DictionaryNote);
    binder_.Check(ui_->ckbAskForDictionary, form_.ckbAskForDictionary);
    binder_.Check(ui_->ckbCaseSensitive, form_.ckbCaseSensitive);
    binder_.Check(ui_->ckbSkipAmpersand, form_.ckbSkipAmpersand);
    binder_.Check(ui_->ckbOverwriteExisting, form_.ckbOverwriteExisting);
    binder_.Check(ui_->ckbForceEmpties, form_.ckbForceEmpties);
    binder_.Check(ui_->ckbParseMultilines, form_.ckbParseMultilines);
}

void TProjectSettingsView::BindProject() {
    binder_.Text(ui_->edDefTranslationFile, form_.edDefTranslationFile);
    binder_.Click(ui_->btTranslationFile, [this] { form_.ChooseTranslationFile(); });
    binder_.Choice(ui_->cbDefFormForUnits, form_.cbDefFormForUnits);
    binder_.Choice(ui_->cbDefFormForDispatcher, form_.cbDefFormForDispatcher);
    binder_.Choice(ui_->cbDefFormForCommonContainer, form_.cbDefFormForCommonContainer);
}

}  // namespace tml

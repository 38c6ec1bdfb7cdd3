#include "desktop/Optionsview.h"

#include <QSignalBlocker>

#include "desktop/Icons.h"
#include "desktop/Texts.h"
#include "ui_Optionsview.h"

namespace tml {

TOptionsView::TOptionsView(TfrmOptions& form, const TViewServices& services)
    : form_(form), ui_(std::make_unique<Ui::Optionsview>()), binder_(services.Runner) {
    ui_->setupUi(this);
    BindPages();
    BindGeneral();
    BindLanguages();
    BindSourceStrings();
    BindConstants();
    BindExcludeAndSkip();
    const auto help = [&form, &services] { services.ShowHelp(form.Name); };
    binder_.Click(ui_->btOK, [&form] { form.btOKClick(); });
    binder_.Click(ui_->btCancel, [&form] { form.btCancelClick(); });
    binder_.Click(ui_->btHelp, help);
    binder_.Keys(this, QKeySequence::HelpContents, help);
    ui_->cbMenuSection->setFocus();
}

TOptionsView::~TOptionsView() = default;

void TOptionsView::BindPages() {
    const auto show = [this](int page) { form_.ShowPage(static_cast<TfrmOptions::TPage>(page)); };
    ui_->sbGeneral->setIcon(PictureOf("options"));
    ui_->sbSourceStrings->setIcon(PictureOf("source"));
    ui_->sbExcludeAndSkip->setIcon(PictureOf("skipped"));
    binder_.OneOf(
        {ui_->sbGeneral, ui_->sbSourceStrings, ui_->sbExcludeAndSkip}, [this] { return form_.ActivePage; },
        show);
    connect(ui_->pcPages, &QTabWidget::currentChanged, this, show);
    binder_.Show([this] {
        const QSignalBlocker quiet(ui_->pcPages);
        ui_->pcPages->setCurrentIndex(form_.ActivePage);
    });
    binder_.Keys(this, Qt::CTRL | Qt::Key_Tab, [this] { form_.NextPage(); });
}

void TOptionsView::BindGeneral() {
    binder_.Choice(ui_->cbMenuSection, form_.cbMenuSection);
    binder_.Show([this] {
        for (int i = 0; i < form_.cbMenuSection.Items.Count(); ++i)
            ui_->cbMenuSection->setItemIcon(i, IconOf(form_.cbMenuSection.Items[i]));
    });
    binder_.ShortCut(ui_->hkShortCut, form_.hkShortCut);
    binder_.Choice(ui_->cbDefaultComp, form_.cbDefaultComp);
    binder_.Check(ui_->ckbOpenAllForms, form_.ckbOpenAllForms);
    binder_.Number(ui_->edNumLang, form_.edNumLang, [this](int step) { form_.StepNumLang(step); });
}

void TOptionsView::BindLanguages() {
    binder_.Names(ui_->lbLanguages, form_.lbLanguages.Items, form_.lbLanguages.Selected);
    binder_.Click(ui_->btAdd, [this] { form_.btAddClick(); });
    binder_.Click(ui_->btRename, [this] { form_.btRenameClick(); });
    binder_.Click(ui_->btDelete, [this] { form_.btDeleteClick(); });
    binder_.Click(ui_->btMoveUp, [this] { form_.btMoveUpClick(); });
    binder_.Click(ui_->btMoveDown, [this] { form_.btMoveDownClick(); });
    binder_.ForSelected(ui_->lbLanguages, ui_->btRename, {ui_->btDelete, ui_->btMoveUp, ui_->btMoveDown});
}

void TOptionsView::BindSourceStrings() {
    binder_.Number(ui_->edPreviewLines, form_.edPreviewLines,
                   [this](int step) { form_.StepPreviewLines(step); });
    binder_.Number(
        ui_->edIgnoredLength, form_.edIgnoredLength, [this](int step) { form_.StepIgnoredLength(step); },
        [this](const std::string& text) { form_.edIgnoredLengthChange(text); });
    binder_.Choice(ui_->cbGetTextMethod, form_.cbGetTextMethod);
    binder_.Number(ui_->edCommentsLength, form_.edCommentsLength,
                   [this](int step) { form_.StepCommentsLength(step); });
    for (QWidget* widget :
         {static_cast<QWidget*>(ui_->commentsLengthLabel), static_cast<QWidget*>(ui_->commentsLengthNote),
          static_cast<QWidget*>(ui_->edCommentsLength)})
        binder_.Enabled(widget, form_.CommentsLengthEnabled);
    binder_.Check(ui_->ckbAddFormName, form_.ckbAddFormName);
    binder_.Check(ui_->ckbNoComments, form_.ckbNoComments, [this] { form_.ckbNoCommentsClick(); });
    binder_.Text(ui_->edHCPrefix, form_.edHCPrefix);
    binder_.Check(ui_->ckbIDsFromTexts, form_.ckbIDsFromTexts);
}

void TOptionsView::BindConstants() {
    binder_.Text(ui_->edCnstPrefix, form_.edCnstPrefix);
    binder_.OneOf(
        {ui_->rbDontChange, ui_->rbUppercase}, [this] { return form_.rgPermanentPart; },
        [this](int index) { form_.rgPermanentPart = index; });
    binder_.Check(ui_->ckbEmptyConsts, form_.ckbEmptyConsts);
}

void TOptionsView::BindExcludeAndSkip() {
    binder_.Text(ui_->edExcludeChars, form_.edExcludeChars);
    binder_.Lines(ui_->memSkipLines, form_.memSkipLines);
    binder_.Lines(ui_->memSkipWords, form_.memSkipWords, [this] { form_.memSkipWordsChange(); });
    binder_.Check(ui_->ckbUseRegExp, form_.ckbUseRegExp);
    binder_.Enabled(ui_->ckbUseRegExp, form_.RegExpEnabled);
}

}  // namespace tml

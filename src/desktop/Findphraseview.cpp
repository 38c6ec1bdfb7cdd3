#include "desktop/Findphraseview.h"

#include "desktop/Texts.h"
#include "ui_Findphraseview.h"
#include "ui_Replconfirmview.h"

namespace tml {

TFindPhraseView::TFindPhraseView(TfrmFind& form, const TViewServices& services)
    : ui_(std::make_unique<Ui::Findphraseview>()), binder_(services.Runner) {
    ui_->setupUi(this);
    binder_.Text(ui_->edFindText, form.edFindText);
    binder_.Text(ui_->edReplace, form.edReplace);
    ui_->lblReplace->setVisible(form.ReplaceVisible);
    ui_->edReplace->setVisible(form.ReplaceVisible);
    resize(width(), sizeHint().height());
    binder_.Check(ui_->ckbSensit, form.ckbSensit);
    binder_.Check(ui_->ckbWhole, form.ckbWhole);
    binder_.Check(ui_->ckbIdent, form.ckbIdent);
    binder_.Check(ui_->ckbDoPrompt, form.ckbDoPrompt);
    binder_.Click(ui_->btOK, [&form] { form.btOKClick(); });
    binder_.Click(ui_->btCancel, [&form] { form.btCancelClick(); });
    const auto help = [&form, &services] { services.ShowHelp(form.Name); };
    binder_.Click(ui_->btHelp, help);
    binder_.Keys(this, QKeySequence::HelpContents, help);
}

TFindPhraseView::~TFindPhraseView() = default;

TReplConfirmView::TReplConfirmView(TfrmReplConfirm& form, const TViewServices& services)
    : ui_(std::make_unique<Ui::Replconfirmview>()), binder_(services.Runner) {
    ui_->setupUi(this);
    binder_.Label(ui_->lblFileName, form.lblFileName);
    binder_.Label(ui_->lblProperty, form.lblProperty);
    binder_.Label(ui_->lblLocation, form.lblLocation);
    binder_.Label(ui_->lblQuestion, form.lblQuestion);
    ui_->memCurrent->setPlainText(ToQt(form.memCurrent));
    ui_->memResult->setPlainText(ToQt(form.memResult));
    binder_.Click(ui_->btYes, [&form] { form.btYesClick(); });
    binder_.Click(ui_->btNo, [&form] { form.btNoClick(); });
    binder_.Click(ui_->btCancel, [&form] { form.btCancelClick(); });
    binder_.Click(ui_->btYesToAll, [&form] { form.btYesToAllClick(); });
}

TReplConfirmView::~TReplConfirmView() = default;

}  // namespace tml

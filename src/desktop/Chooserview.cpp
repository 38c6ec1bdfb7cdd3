#include "desktop/Chooserview.h"

#include "desktop/Texts.h"
#include "ui_Chooserview.h"

namespace tml {

TChooserView::TChooserView(TfrmNotTranslate& form, const TViewServices& services)
    : form_(form), ui_(std::make_unique<Ui::Chooserview>()), binder_(services.Runner) {
    ui_->setupUi(this);
    BindLists();
    BindButtons();
    const auto help = [&form, &services] { services.ShowHelp(form.Name); };
    binder_.Click(ui_->btHelp, help);
    binder_.Keys(this, QKeySequence::HelpContents, help);
}

TChooserView::~TChooserView() = default;

void TChooserView::BindLists() {
    binder_.Label(ui_->lblInstruction, form_.lblInstruction);
    binder_.Label(ui_->lblComps, form_.lblComps);
    binder_.Label(ui_->lblSelected, form_.lblSelected);
    const auto changed = [this] { form_.SelectionChange(); };
    binder_.Names(ui_->lbComps, form_.lbComps.Items, form_.lbComps.Selected, changed);
    binder_.Names(ui_->lbSelected, form_.lbSelected.Items, form_.lbSelected.Selected, changed);
    binder_.DoubleClick(ui_->lbComps, [this](int index) { form_.lbCompsDblClick(index); });
    binder_.DoubleClick(ui_->lbSelected, [this](int index) { form_.lbSelectedDblClick(index); });
}

void TChooserView::BindButtons() {
    binder_.Click(ui_->btAdd, [this] { form_.btAddClick(); });
    binder_.Click(ui_->btAddAll, [this] { form_.btAddAllClick(); });
    binder_.Click(ui_->btRemove, [this] { form_.btRemoveClick(); });
    binder_.Click(ui_->btRemoveAll, [this] { form_.btRemoveAllClick(); });
    binder_.Enabled(ui_->btAdd, form_.btAddEnabled);
    binder_.Enabled(ui_->btAddAll, form_.btAddAllEnabled);
    binder_.Enabled(ui_->btRemove, form_.btRemoveEnabled);
    binder_.Enabled(ui_->btRemoveAll, form_.btRemoveAllEnabled);
    binder_.Click(ui_->btOK, [this] { form_.btOKClick(); });
    binder_.Click(ui_->btCancel, [this] { form_.btCancelClick(); });
}

void TChooserView::showEvent(QShowEvent* event) {
    TView::showEvent(event);
    // Only now has the splitter the width that it divides.
    QSplitter& splitter = *ui_->splitter;
    if (form_.LeftWidth)
        splitter.setSizes({*form_.LeftWidth, splitter.width() - splitter.handleWidth() - *form_.LeftWidth});
}

void TChooserView::BeforeClose() {
    form_.LeftWidth = ui_->splitter->sizes().front();
}

}  // namespace tml

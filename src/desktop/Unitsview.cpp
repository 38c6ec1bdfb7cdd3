#include "desktop/Unitsview.h"

#include <algorithm>

#include "desktop/Texts.h"
#include "ui_Unitsview.h"

namespace tml {
namespace {

// A list without options is as high as its rows, within these.
constexpr int kFewestRows = 4;
constexpr int kMostRows = 24;

}  // namespace

TUnitsView::TUnitsView(TfrmTranslUnits& form, const TViewServices& services)
    : form_(form), ui_(std::make_unique<Ui::Unitsview>()), binder_(services.Runner) {
    ui_->setupUi(this);
    binder_.Label(ui_->lblUnits, form.lblUnits);
    binder_.Names(ui_->lbUnits, form.UnitNames, form.lbUnits.Selected, [&form] { form.lbUnitsClick(); });
    binder_.Text(ui_->filter, form.Filter, [&form](const std::string& text) { form.SetFilter(text); });
    binder_.Keys(this, QKeySequence::Find, [this] { ui_->filter->setFocus(); });
    binder_.Label(ui_->lblForm, form.lblForm);
    binder_.Choice(ui_->cbForm, form.cbForm, [&form] { form.cbFormChange(); });
    binder_.Click(ui_->btSelectAll, [&form] { form.SelectAll(); });
    const auto help = [&form, &services] { services.ShowHelp(form.Name); };
    binder_.Click(ui_->btHelp, help);
    binder_.Keys(this, QKeySequence::HelpContents, help);
    binder_.Click(ui_->btOK, [&form] { form.btOKClick(); });
    binder_.Click(ui_->btCancel, [&form] { form.btCancelClick(); });
    binder_.Show([this] {
        ui_->options->setVisible(form_.OptionsVisible);
        ui_->btOK->setEnabled(form_.OKEnabled());
        for (int unit = 0; unit < ui_->lbUnits->count(); ++unit) {
            ui_->lbUnits->item(unit)->setToolTip(ToQt(form_.lbUnits.Items[unit]));
            ui_->lbUnits->item(unit)->setHidden(!form_.IsShown(unit));
        }
    });
}

TUnitsView::~TUnitsView() = default;

void TUnitsView::Refresh() {
    binder_.Refresh();
    if (laidOut_ || !form_.Visible) return;
    laidOut_ = true;
    if (!form_.OptionsVisible) FitHeight();
}

void TUnitsView::FitHeight() {
    const int rows = std::clamp(ui_->lbUnits->count(), kFewestRows, kMostRows);
    const int row = std::max(ui_->lbUnits->sizeHintForRow(0), fontMetrics().height());
    ui_->lbUnits->setMinimumHeight(rows * row + 2 * ui_->lbUnits->frameWidth());
    layout()->activate();
    window()->resize(window()->width(), minimumSizeHint().height());
}

}  // namespace tml

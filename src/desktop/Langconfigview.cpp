#include "desktop/Langconfigview.h"

#include "ui_Langconfigview.h"

namespace tml {

TLangConfigView::TLangConfigView(TfrmLangConfig& form, const TViewServices& services)
    : ui_(std::make_unique<Ui::Langconfigview>()), binder_(services.Runner) {
    ui_->setupUi(this);
    binder_.Text(ui_->edLangCount, form.edLangCount,
                 [&form](const std::string& text) { form.edLangCountChange(text); });
    binder_.Click(ui_->sbUp2, [&form] { form.sbUp2Click(); });
    binder_.Click(ui_->sbDown2, [&form] { form.sbDown2Click(); });
    binder_.Names(ui_->lbLangNames, form.lbLangNames, form.Selected);
    binder_.Click(ui_->btnMoveUp, [&form] { form.btnMoveUpClick(); });
    binder_.Click(ui_->btnMoveDown, [&form] { form.btnMoveDownClick(); });
    binder_.Click(ui_->btnRename, [&form] { form.btnRenameClick(); });
    binder_.Click(ui_->btnAdd, [&form] { form.btnAddClick(); });
    binder_.Click(ui_->btnDelete, [&form] { form.btnDeleteClick(); });
    binder_.ForSelected(ui_->lbLangNames, ui_->btnRename, {ui_->btnDelete, ui_->btnMoveUp, ui_->btnMoveDown});
    binder_.Enabled(ui_->btOK, form.btOKEnabled);
    binder_.CloseWith(ui_->btOK, form, mrOk);
    binder_.CloseWith(ui_->btCancel, form, mrCancel);
    binder_.Click(ui_->btnHelp, [&form, &services] { services.ShowHelp(form.Name); });
}

TLangConfigView::~TLangConfigView() = default;

}  // namespace tml

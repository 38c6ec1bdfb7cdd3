#include "desktop/Filldictionaryview.h"

#include "desktop/Filterbox.h"
#include "desktop/Gridtable.h"
#include "desktop/Texts.h"
#include "ui_Filldictionaryview.h"

namespace tml {

TFillDictionaryView::TFillDictionaryView(TfrmFillDictionary& form, const TViewServices& services)
    : form_(form),
      services_(services),
      ui_(std::make_unique<Ui::Filldictionaryview>()),
      binder_(services.Runner),
      model_([&form]() -> TGrid& { return form.grFills; }) {
    ui_->setupUi(this);
    BindOptions();
    SetUpGrid(*this, *ui_->grFills, model_, services.Runner);
    BindFilter(*this, *ui_->filter, *ui_->grFills, services.Runner,
               [&form](const std::string& text) { form.SetFilter(text); });
    binder_.Show([this] {
        ui_->filterCount->setText(FilterCount(*ui_->grFills));
        ui_->problems->setText(ToQt(form_.Problems));
        ui_->problems->setVisible(!form_.Problems.empty());
        ui_->btFill->setEnabled(form_.HasTaken());
    });
    binder_.Label(ui_->status, form.Status);
    binder_.Click(ui_->btFill, [&form] { form.btFillClick(); });
    binder_.Click(ui_->btCancel, [&form] { form.btCancelClick(); });
    actions_ = std::make_unique<TActionBinding>(
        form.Actions, *this, *ui_->toolBar, *ui_->grFills, [this](const TAction& action) {
            services_.Runner.Run(
                [&] { action.Execute ? action.Execute() : services_.ShowHelp("frmDictionary"); });
        });
}

TFillDictionaryView::~TFillDictionaryView() = default;

void TFillDictionaryView::BindOptions() {
    const auto changed = [this] { form_.OptionsChange(); };
    binder_.Choice(ui_->cbLanguage, form_.cbLanguage, [this] { form_.cbLanguageChange(); });
    binder_.Choice(ui_->cbBase, form_.cbBase, changed);
    binder_.Choice(ui_->cbTranslation, form_.cbTranslation, changed);
    binder_.Check(ui_->ckbIgnoreCase, form_.Options.IgnoreCase, changed);
    binder_.Check(ui_->ckbSkipAmpersand, form_.Options.SkipAmpersands, changed);
    binder_.Check(ui_->ckbParseMultilines, form_.Options.ParseMultilines, changed);
    binder_.Check(ui_->ckbOverwriteExisting, form_.Options.OverwriteExisting, changed);
    binder_.Check(ui_->ckbForceEmpties, form_.Options.ForceEmpties, changed);
}

void TFillDictionaryView::Refresh() {
    ui_->grFills->ShowGrid();
    binder_.Refresh();
    actions_->Refresh();
}

}  // namespace tml

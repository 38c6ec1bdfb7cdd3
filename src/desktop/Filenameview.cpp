#include "desktop/Filenameview.h"

#include "desktop/Texts.h"
#include "ui_Filenameview.h"

namespace tml {

TFileNameView::TFileNameView(TfrmAsk4FileName& form, const TViewServices& services)
    : form_(form), ui_(std::make_unique<Ui::Filenameview>()), binder_(services.Runner) {
    ui_->setupUi(this);
    ui_->lblTags->setText(ToQt(kExistingTags));
    BindModes();
    BindTemplate();
    const auto help = [&form, &services] { services.ShowHelp(form.Name); };
    binder_.Click(ui_->btOK, [&form] { form.btOKClick(); });
    binder_.Enabled(ui_->btOK, form.btOKEnabled);
    binder_.Click(ui_->btCancel, [&form] { form.btCancelClick(); });
    binder_.Click(ui_->btHelp, help);
    binder_.Keys(this, QKeySequence::HelpContents, help);
}

TFileNameView::~TFileNameView() = default;

void TFileNameView::BindModes() {
    binder_.OneOf(
        {ui_->rbOneFile4All, ui_->rbFileNameTemplate}, [this] { return form_.rbOneFile4All ? 0 : 1; },
        [this](int chosen) {
            if (chosen == 0)
                form_.rbOneFile4AllClick();
            else
                form_.rbFileNameTemplateClick();
        });
    binder_.Text(ui_->edFileName, form_.edFileName,
                 [this](const std::string& text) { form_.edFileNameChange(text); });
    binder_.Click(ui_->btBrowseForFile, [this] { form_.btBrowseForFileClick(); });
    const auto enable = [this](TFileNameMode mode, std::initializer_list<QWidget*> group) {
        for (QWidget* widget : group)
            binder_.Show([this, mode, widget] { widget->setEnabled(form_.IsEnabled(mode)); });
    };
    enable(fmOneFile, {ui_->lblFileName, ui_->edFileName, ui_->btBrowseForFile});
    enable(fmTemplate, {ui_->lblTemplateText, ui_->edTemplateText, ui_->rbMLL, ui_->rbMLB, ui_->lblFolderName,
                        ui_->edFolderName, ui_->btBrowseFolder, ui_->gbTags});
}

void TFileNameView::BindTemplate() {
    binder_.Text(ui_->edTemplateText, form_.edTemplateText,
                 [this](const std::string& text) { form_.edTemplateTextChange(text); });
    const auto kind = [this] {
        if (form_.rbMLL) return 0;
        return form_.rbMLB ? 1 : -1;
    };
    binder_.OneOf({ui_->rbMLL, ui_->rbMLB}, kind, [this](int chosen) {
        if (chosen == 0)
            form_.rbMLLClick();
        else
            form_.rbMLBClick();
    });
    binder_.Text(ui_->edFolderName, form_.edFolderName,
                 [this](const std::string& text) { form_.edFolderNameChange(text); });
    binder_.Click(ui_->btBrowseFolder, [this] { form_.btBrowseFolderClick(); });
}

}  // namespace tml

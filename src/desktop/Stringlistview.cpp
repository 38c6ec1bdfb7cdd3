#include "desktop/Stringlistview.h"

#include "ui_Stringlistview.h"

namespace tml {

TStringListView::TStringListView(TfrmStringList& form, const TViewServices& services)
    : form_(form), ui_(std::make_unique<Ui::Stringlistview>()), binder_(services.Runner) {
    ui_->setupUi(this);
    binder_.Lines(ui_->mmLines, form.Lines, [this] { CountLines(); });
    binder_.Show([this] { CountLines(); });
    binder_.CloseWith(ui_->btOK, form, mrOk);
    binder_.CloseWith(ui_->btCancel, form, mrCancel);
    // Enter makes a new line.
    binder_.Keys(this, Qt::CTRL | Qt::Key_Return, [this] { form_.Close(mrOk); });
    const auto help = [&form, &services] { services.ShowHelp(form.Name); };
    binder_.Click(ui_->btHelp, help);
    binder_.Keys(this, QKeySequence::HelpContents, help);
}

TStringListView::~TStringListView() = default;

void TStringListView::CountLines() {
    const int count = form_.Lines.Count();
    ui_->lblLines->setText(count == 1 ? QString("1 line") : QString("%1 lines").arg(count));
}

}  // namespace tml

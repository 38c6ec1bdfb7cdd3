#include "desktop/Formdialog.h"

#include <QCloseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "desktop/Texts.h"

namespace tml {
namespace {

constexpr const char* kButtonRow = "buttons";  ///< the row below everything else, in every view that has one

}  // namespace

TFormDialog::TFormDialog(TForm& form, std::unique_ptr<TView> view, const TViewServices& services,
                         QWidget* parent)
    : QDialog(parent), form_(&form), view_(view.release()), services_(services) {
    setObjectName(ToQt(form.Name));
    auto* layout = new QVBoxLayout(this);
    // A view of one size makes a window of one size.
    const bool isFixed = view_->sizePolicy().horizontalPolicy() == QSizePolicy::Fixed;
    if (isFixed) layout->setSizeConstraint(QLayout::SetFixedSize);
    setWindowFlag(Qt::WindowMaximizeButtonHint, !isFixed);
    setSizeGripEnabled(!isFixed);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view_);
    resize(view_->size());
    form_->OnChange = [this] { FormChanged(); };
}

TFormDialog::~TFormDialog() {
    if (form_ != nullptr) form_->OnChange = nullptr;
}

std::string TFormDialog::PlaceName() const {
    return "Place." + form_->Name;
}

void TFormDialog::Begin() {
    if (view_->Place() == nullptr) services_.Places.Restore(*this, PlaceName());
    form_->Visible = true;
    form_->ModalResult = mrNone;
    form_->FormShow();
    if (const TPlacement* place = view_->Place()) PutAt(*this, *place);
    FormChanged();
    FitOnScreen();
    FocusActiveControl();
}

void TFormDialog::End() {
    form_->Visible = false;
    // A layout that cannot be stored is told, but takes nothing from what was decided in the window.
    services_.Runner.Run([this] { StoreLayout(); });
}

TModalResult TFormDialog::Execute() {
    Begin();
    exec();
    End();
    // A window manager hands the focus on to the window behind. Where a question and the window that asked it
    // go at once, it hands it to that window, and then nobody has it.
    if (parentWidget() != nullptr) parentWidget()->activateWindow();
    return form_->ModalResult;
}

void TFormDialog::ShowOpen() {
    Begin();
    connect(this, &QDialog::finished, this, [this] {
        End();
        form_->OnChange = nullptr;
        form_ = nullptr;
        deleteLater();
    });
    if (!testAttribute(Qt::WA_Moved)) PutAtFoot(*this);
    show();
}

void TFormDialog::FitOnScreen() {
    const QSize room = RoomFor(*this);
    const QSize least = view_->minimumSizeHint().expandedTo(view_->minimumSize());
    if (least.boundedTo(room) != least) Scroll(least);
    resize(size().boundedTo(room));
}

void TFormDialog::Scroll(const QSize& least) {
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    layout()->removeWidget(view_);
    layout()->setSizeConstraint(QLayout::SetDefaultConstraint);
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    layout()->addWidget(area);
    if (auto* buttons = view_->findChild<QHBoxLayout*>(kButtonRow)) {
        view_->layout()->removeItem(buttons);
        buttons->setParent(nullptr);
        buttons->setContentsMargins(view_->layout()->contentsMargins());
        static_cast<QVBoxLayout*>(layout())->addLayout(buttons);
    }
    area->setWidget(view_);
    resize(least + QSize(area->verticalScrollBar()->sizeHint().width(), 0));
}

void TFormDialog::StoreLayout() {
    view_->BeforeClose();
    if (TPlacement* place = view_->Place())
        NotePlace(*this, *place);
    else
        services_.Places.Save(*this, PlaceName());
    form_->FormClose();
}

void TFormDialog::FocusActiveControl() {
    if (form_->ActiveControl.empty()) return;
    if (auto* control = findChild<QWidget*>(ToQt(form_->ActiveControl))) control->setFocus();
}

void TFormDialog::FormChanged() {
    setWindowTitle(ToQt(form_->Caption));
    view_->Refresh();
    if (form_->ModalResult != mrNone && isVisible()) TryClose();
}

void TFormDialog::TryClose() {
    // The form may ask the person, and a change meanwhile must not ask again.
    if (asking_) return;
    asking_ = true;
    bool agreed = false;
    services_.Runner.Run([&] { agreed = form_->FormCloseQuery(); });
    asking_ = false;
    if (agreed)
        QDialog::done(form_->ModalResult);
    else
        form_->ModalResult = mrNone;
}

void TFormDialog::reject() {
    form_->Close(mrCancel);
}

void TFormDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

}  // namespace tml

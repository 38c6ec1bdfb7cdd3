#include "desktop/Progressbox.h"

#include <QCoreApplication>
#include <QProgressDialog>

#include "desktop/Texts.h"

namespace tml {
namespace {

constexpr qint64 kSilence = 80;        ///< ms, so that the box is seen within 100
constexpr qint64 kBetweenEvents = 50;  ///< ms

}  // namespace

bool TProgressBox::Show(QWidget* parent, const std::string& text, int position, int maximum) {
    if (!sinceStart_.isValid()) sinceStart_.start();
    if (sinceStart_.elapsed() < kSilence) return true;
    if (box_ == nullptr) {
        box_ = new QProgressDialog(parent);
        box_->setWindowModality(Qt::ApplicationModal);
        box_->setWindowTitle("TmlLang Expert");
        box_->setAutoClose(false);
        box_->setAutoReset(false);
        box_->setMinimumWidth(360);
        box_->show();
        sinceEvents_.invalidate();
    }
    // A full bar announces what may take long by itself.
    const bool isLast = maximum > 0 && position == maximum;
    if (!isLast && sinceEvents_.isValid() && sinceEvents_.elapsed() < kBetweenEvents)
        return !box_->wasCanceled();
    sinceEvents_.start();
    box_->setLabelText(ToQt(text));
    box_->setMaximum(maximum);
    box_->setValue(position);
    QCoreApplication::processEvents();
    return box_ == nullptr || !box_->wasCanceled();
}

void TProgressBox::Hide() {
    delete box_.data();
    sinceStart_.invalidate();
}

}  // namespace tml

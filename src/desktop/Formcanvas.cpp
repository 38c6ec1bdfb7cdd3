#include "desktop/Formcanvas.h"

#include <QPaintEvent>
#include <QPainter>

#include "picture/Formmeasure.h"
#include "picture/Formpainter.h"
#include "picture/Formpicture.h"

namespace tml {

TFormCanvas::TFormCanvas() {
    setObjectName("formPicture");
}

void TFormCanvas::Show(TLayoutNode form, const TLayoutOptions& options) {
    layout_ = {};
    form_ = std::move(form);
    layout_ = LayOutForm(form_, TFormMeasure(), options);
    setFixedSize(PictureSize(layout_));
    update();
}

void TFormCanvas::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    PaintForm(painter, layout_, palette(), event->rect());
}

}  // namespace tml

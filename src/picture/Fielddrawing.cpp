#include "picture/Fielddrawing.h"

#include <algorithm>

#include "picture/Controlcanvas.h"

namespace tml {

void DrawLabel(const TControlCanvas& on) {
    const int mnemonic = on.Is("ShowAccelChar", "False") ? 0 : Qt::TextShowMnemonic;
    on.Text(on.Place, on.Item.Text,
            static_cast<int>(Across(on.Item.Alignment) | Down(on.Item.Layout)) | mnemonic |
                (on.Item.WordWrap ? Qt::TextWordWrap : 0));
}

void DrawEdit(const TControlCanvas& on) {
    on.Border(on.Place);
    on.Text(on.Place.adjusted(kTextRoom, 0, -kTextRoom, 0), on.Item.Text,
            static_cast<int>(Across(on.Item.Alignment) | Qt::AlignVCenter) | Qt::TextSingleLine);
}

void DrawSpinEdit(const TControlCanvas& on) {
    QRect rest = on.Place;
    on.Arrows(on.CutEnd(rest));
    DrawEdit(on);
}

void DrawEditButton(const TControlCanvas& on) {
    QRect rest = on.Place;
    on.PushButton(on.CutEnd(rest), "...");
    DrawEdit(on);
}

void DrawComboBox(const TControlCanvas& on) {
    on.Border(on.Place);
    QRect rest = on.Place;
    on.Arrow(on.CutEnd(rest), 1);
    on.Text(rest.adjusted(kTextRoom, 0, -kTextRoom, 0), on.Item.Text,
            Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine);
}

void DrawMemo(const TControlCanvas& on) {
    on.Border(on.Place);
    const bool wraps = !on.Is("WordWrap", "False");
    on.Text(on.Place.adjusted(kTextRoom, kTextRoom / 2, -kTextRoom, -1), on.Item.Text,
            static_cast<int>(Across(on.Item.Alignment) | Qt::AlignTop) | (wraps ? Qt::TextWordWrap : 0));
}

void DrawTrackBar(const TControlCanvas& on) {
    const bool isUpright = on.Is("Orientation", "trVertical");
    const QPoint middle = on.Place.center();
    on.Painter.setPen(QPen(on.Line(), 2));
    if (isUpright)
        on.Painter.drawLine(middle.x(), on.Place.top() + kTextRoom, middle.x(),
                            on.Place.bottom() - kTextRoom);
    else
        on.Painter.drawLine(on.Place.left() + kTextRoom, middle.y(), on.Place.right() - kTextRoom,
                            middle.y());
    const QPoint start = isUpright ? QPoint(middle.x() - kMark / 2, on.Place.top() + kTextRoom)
                                   : QPoint(on.Place.left() + kTextRoom, middle.y() - kMark / 2);
    on.PushButton({start, QSize(kMark, kMark)}, {});
}

void DrawScrollBar(const TControlCanvas& on) {
    on.Painter.fillRect(on.Place, on.Palette.color(QPalette::Mid));
    const int thick = std::min(on.Place.width(), on.Place.height());
    on.PushButton({on.Place.topLeft(), QSize(thick, thick)}, {});
    on.PushButton({on.Place.bottomRight() - QPoint(thick - 1, thick - 1), QSize(thick, thick)}, {});
}

void DrawUpDown(const TControlCanvas& on) {
    on.Arrows(on.Place);
}

}  // namespace tml

#include "picture/Listdrawing.h"

#include "picture/Controlcanvas.h"
#include "picture/Formcolours.h"

namespace tml {
namespace {

void Title(const TControlCanvas& on, const TLayoutPart& part) {
    const QRect place = on.PartPlace(part.Place);
    on.Painter.fillRect(place, on.Palette.color(QPalette::Button));
    on.Painter.setPen(on.Line());
    on.Painter.drawLine(place.bottomLeft(), place.bottomRight());
    on.Painter.drawLine(place.topRight(), place.bottomRight());
    on.Painter.setPen(ReadableOn(on.Palette.color(QPalette::Button), on.Palette.color(QPalette::ButtonText)));
    on.Painter.drawText(place.adjusted(kTextRoom, 0, -kTextRoom, 0),
                        static_cast<int>(Across(part.Alignment) | Qt::AlignVCenter) | Qt::TextSingleLine,
                        QString::fromUtf8(part.Text));
}

}  // namespace

void DrawList(const TControlCanvas& on) {
    for (const TLayoutPart& part : on.Item.Parts) {
        const QRect line = on.PartPlace(part.Place);
        if (part.IsOn) on.Painter.fillRect(line, on.Palette.color(QPalette::Highlight));
        on.Painter.setPen(part.IsOn ? on.Palette.color(QPalette::HighlightedText) : on.Ink(on.Paper));
        QRect text = line.adjusted(kTextRoom, 0, -kTextRoom, 0);
        if (on.Item.Kind == TLayoutKind::CheckListBox) {
            const QRect end =
                on.Item.RightToLeft ? on.CutEnd(text) : QRect(text.left(), text.top(), kMark, kMark);
            on.Painter.drawRect(end.left() + 1, line.center().y() - kMark / 2, kMark - 3, kMark - 3);
            if (!on.Item.RightToLeft) text.setLeft(text.left() + kMark + kTextRoom);
        }
        on.Painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                            QString::fromUtf8(part.Text));
    }
    on.Border(on.Place);
}

void DrawColumns(const TControlCanvas& on) {
    for (const TLayoutPart& part : on.Item.Parts) {
        if (!part.IsTitle) {
            on.Text(on.PartPlace(part.Place).adjusted(kTextRoom, 0, -kTextRoom, 0), part.Text,
                    static_cast<int>(Across(part.Alignment) | Qt::AlignVCenter) | Qt::TextSingleLine);
            continue;
        }
        Title(on, part);
        const QRect place = on.PartPlace(part.Place);
        if (on.Item.Kind != TLayoutKind::Grid) continue;
        on.Painter.setPen(on.Palette.color(QPalette::Mid));
        on.Painter.drawLine(place.right(), place.bottom() + 1, place.right(), on.Place.bottom());
    }
    on.Border(on.Place);
}

}  // namespace tml

#include "picture/Buttondrawing.h"

#include "picture/Controlcanvas.h"
#include "picture/Formglyphs.h"

namespace tml {
namespace {

/// The first or the last one of two that stand beside each other, or upright.
QRect PartOf(const QRect& both, const QSize& size, bool isUpright, bool isLast) {
    QRect part({0, 0}, size);
    part.moveCenter(both.center());
    if (isUpright)
        isLast ? part.moveBottom(both.bottom()) : part.moveTop(both.top());
    else
        isLast ? part.moveRight(both.right()) : part.moveLeft(both.left());
    return part;
}

void Glyph(const TControlCanvas& on, const QRect& place) {
    const QImage glyph = GlyphIn(*on.Item.Node);
    glyph.isNull() ? on.Placeholder(place) : on.Painter.drawImage(place, glyph);
}

/// A button's picture and text, together in the middle.
void GlyphAndText(const TControlCanvas& on, const QRect& place) {
    constexpr int kCenter = static_cast<int>(Qt::AlignCenter) | Qt::TextShowMnemonic;
    const QSize glyph(on.Item.Glyph.Width, on.Item.Glyph.Height);
    if (glyph.isEmpty())
        return on.Text(place, on.Item.Text, kCenter | (on.Item.WordWrap ? Qt::TextWordWrap : 0));
    const bool isRight = on.Item.GlyphSide == TLayoutGlyphSide::Right;
    const bool isBelow = on.Item.GlyphSide == TLayoutGlyphSide::Bottom;
    const bool isUpright = isBelow || on.Item.GlyphSide == TLayoutGlyphSide::Top;
    const bool isLast = isUpright ? isBelow : isRight != on.Item.RightToLeft;
    const QSize text = on.Painter.fontMetrics().size(Qt::TextShowMnemonic, QString::fromUtf8(on.Item.Text));
    const int space = on.Item.Text.empty() ? 0 : kTextRoom;
    QSize size = glyph.expandedTo(text);
    if (isUpright)
        size.setHeight(glyph.height() + space + text.height());
    else
        size.setWidth(glyph.width() + space + text.width());
    QRect both({0, 0}, size);
    both.moveCenter(place.center());
    Glyph(on, PartOf(both, glyph, isUpright, isLast));
    on.Text(PartOf(both, text, isUpright, !isLast), on.Item.Text, kCenter);
}

void Mark(const TControlCanvas& on, bool isRound) {
    const int top = (on.Item.Place.Height - kMark) / 2;
    const QRect box = on.PartPlace({0, top, kMark, kMark}).adjusted(0, 0, -1, -1);
    on.Painter.setPen(on.Line());
    on.Painter.setBrush(on.Palette.color(QPalette::Base));
    isRound ? on.Painter.drawEllipse(box) : on.Painter.drawRect(box);
    if (on.Item.IsOn) {
        on.Painter.setPen(Qt::NoPen);
        on.Painter.setBrush(on.Palette.color(QPalette::Highlight));
        const QRect inner = box.adjusted(3, 3, -2, -2);
        isRound ? on.Painter.drawEllipse(inner) : on.Painter.drawRect(inner);
    }
    const int room = kMark + kTextRoom;
    on.Text(on.PartPlace({room, 0, on.Item.Place.Width - room, on.Item.Place.Height}), on.Item.Text,
            static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextShowMnemonic |
                (on.Item.WordWrap ? Qt::TextWordWrap : 0));
}

}  // namespace

void DrawButton(const TControlCanvas& on) {
    on.PushButton(on.Place, {});
    GlyphAndText(on, on.Place);
}

void DrawSpeedButton(const TControlCanvas& on) {
    if (on.Is("Style", "tbsSeparator") || on.Is("Style", "tbsDivider")) {
        on.Painter.setPen(on.Line());
        on.Painter.drawLine(on.Place.center().x(), on.Place.top() + 2, on.Place.center().x(),
                            on.Place.bottom() - 2);
        return;
    }
    if (on.Item.IsOn) on.Painter.fillRect(on.Place, on.Palette.color(QPalette::Mid));
    if (on.Item.Kind == TLayoutKind::SpeedButton && !on.IsOn("Flat")) on.PushButton(on.Place, {});
    GlyphAndText(on, on.Place);
}

void DrawCheckBox(const TControlCanvas& on) {
    Mark(on, false);
}

void DrawRadioButton(const TControlCanvas& on) {
    Mark(on, true);
}

void DrawButtonPanel(const TControlCanvas& on) {
    for (const TLayoutPart& part : on.Item.Parts)
        on.PushButton(on.PartPlace(part.Place), part.Text);
}

}  // namespace tml

#include "picture/Controlcanvas.h"

#include "base/Utf8.h"
#include "picture/Formcolours.h"
#include "picture/Formmeasure.h"

namespace tml {
namespace {

constexpr int kArrow = 4;       ///< half an arrow's width
constexpr int kButton = 18;     ///< width of the button at the end of a field
constexpr int kLeastLine = 30;  ///< of the contrast to the paper
constexpr int kRound = 3;       ///< radius of a button's corner

}  // namespace

QRect RectOf(const TLayoutRect& rect) {
    return {rect.Left, rect.Top, rect.Width, rect.Height};
}

QRect PlaceOfPart(const TLayoutItem& item, const TLayoutRect& part) {
    const int left = item.RightToLeft ? item.Place.Width - part.Left - part.Width : part.Left;
    return {item.Place.Left + left, item.Place.Top + part.Top, part.Width, part.Height};
}

Qt::Alignment Across(TLayoutAlignment alignment) {
    constexpr Qt::AlignmentFlag kFlags[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    return kFlags[static_cast<int>(alignment)];
}

Qt::Alignment Down(TLayoutAlignment alignment) {
    constexpr Qt::AlignmentFlag kFlags[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    return kFlags[static_cast<int>(alignment)];
}

TControlCanvas::TControlCanvas(QPainter& painter, const TLayoutItem& item, const QPalette& palette,
                               const QColor& paper)
    : Painter(painter), Item(item), Palette(palette), Paper(paper), Place(RectOf(item.Place)) {
    Painter.setFont(FontOf(Item.Font));
    Painter.setLayoutDirection(Item.RightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
}

bool TControlCanvas::IsOn(const char* property) const {
    return Is(property, "True");
}

bool TControlCanvas::Is(const char* property, std::string_view value) const {
    const TFormValue* const given = Item.Node->Find(property);
    return given != nullptr && SameText(given->Text, value);
}

QColor TControlCanvas::Line() const {
    const QColor line = Palette.color(QPalette::Dark);
    return qAbs(qGray(line.rgb()) - qGray(Paper.rgb())) < kLeastLine
               ? Palette.color(QPalette::PlaceholderText)
               : line;
}

QColor TControlCanvas::Ink(const QColor& paper) const {
    if (!Item.Enabled) return Palette.color(QPalette::Disabled, QPalette::WindowText);
    const QColor own = ColourOf(Item.Font.Color, Palette);
    const bool isChosen = own.isValid() && !SameText(Item.Font.Color, "clWindowText");
    return isChosen ? own : ReadableOn(paper, Palette.color(QPalette::WindowText));
}

QRect TControlCanvas::CutEnd(QRect& rest) const {
    QRect end = rest;
    if (Item.RightToLeft) {
        end.setWidth(kButton);
        rest.setLeft(end.right() + 1);
    } else {
        end.setLeft(rest.right() + 1 - kButton);
        rest.setRight(end.left() - 1);
    }
    return end;
}

void TControlCanvas::Text(const QRect& place, const std::string& text, int flags) const {
    if (text.empty()) return;
    Painter.setPen(Ink(Paper));
    Painter.drawText(place, flags, QString::fromUtf8(text));
}

void TControlCanvas::Border(const QRect& place) const {
    Painter.setPen(Line());
    Painter.setBrush(Qt::NoBrush);
    Painter.drawRect(place.adjusted(0, 0, -1, -1));
}

void TControlCanvas::PushButton(const QRect& place, const std::string& text) const {
    Painter.setPen(Line());
    Painter.setBrush(Palette.color(QPalette::Button));
    Painter.drawRoundedRect(place.adjusted(0, 0, -1, -1), kRound, kRound);
    Text(place, text, Qt::AlignCenter | Qt::TextShowMnemonic | (Item.WordWrap ? Qt::TextWordWrap : 0));
}

void TControlCanvas::Arrow(const QRect& place, int down) const {
    const QPoint middle = place.center();
    const QPoint corners[] = {middle + QPoint(-kArrow, -down * kArrow / 2),
                              middle + QPoint(kArrow, -down * kArrow / 2),
                              middle + QPoint(0, down * kArrow / 2)};
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(Ink(Paper));
    Painter.drawPolygon(corners, 3);
}

void TControlCanvas::Arrows(const QRect& place) const {
    Border(place);
    Arrow(place.adjusted(0, 0, 0, -place.height() / 2), -1);
    Arrow(place.adjusted(0, place.height() / 2, 0, 0), 1);
}

void TControlCanvas::Placeholder(const QRect& place) const {
    Painter.setPen(QPen(Line(), 1, Qt::DashLine));
    Painter.setBrush(Qt::NoBrush);
    Painter.drawRect(place.adjusted(0, 0, -1, -1));
    Painter.drawLine(place.topLeft(), place.bottomRight());
    Painter.drawLine(place.topRight(), place.bottomLeft());
}

}  // namespace tml

#include "picture/Boxdrawing.h"

#include <algorithm>

#include "picture/Controlcanvas.h"

namespace tml {
namespace {

constexpr int kLeastBar = 10;  ///< thickness of a scroll bar

/// From the lower to the upper end at the left, and down at the right.
void UprightText(const TControlCanvas& on, const QRect& place, const std::string& text, bool isUp) {
    on.Painter.save();
    on.Painter.translate(QRectF(place).center());
    on.Painter.rotate(isUp ? -90 : 90);
    const QSize turned = place.size().transposed();
    on.Text({QPoint(-turned.width() / 2, -turned.height() / 2), turned}, text,
            Qt::AlignCenter | Qt::TextShowMnemonic);
    on.Painter.restore();
}

}  // namespace

/// Its menu bar; what stands on it draws itself.
void DrawForm(const TControlCanvas& on) {
    for (const TLayoutPart& part : on.Item.Parts)
        on.Text(on.PartPlace(part.Place), part.Text, Qt::AlignCenter | Qt::TextShowMnemonic);
}

void DrawPanel(const TControlCanvas& on) {
    if (!on.Is("BevelOuter", "bvNone") || on.Is("BorderStyle", "bsSingle")) on.Border(on.Place);
    on.Text(on.Place, on.Item.Text,
            static_cast<int>(Across(on.Item.Alignment) | Qt::AlignVCenter) | Qt::TextShowMnemonic);
}

void DrawGroupBox(const TControlCanvas& on) {
    const int half = on.Item.Text.empty() ? 0 : on.Painter.fontMetrics().height() / 2;
    on.Border(on.Place.adjusted(0, half, 0, 0));
    if (on.Item.Text.empty()) return;
    const int width =
        on.Painter.fontMetrics().size(Qt::TextShowMnemonic, QString::fromUtf8(on.Item.Text)).width() +
        2 * kTextRoom;
    const QRect title = on.PartPlace({2 * kTextRoom, 0, width, 2 * half + 1});
    on.Painter.fillRect(title, on.Paper);
    on.Text(title, on.Item.Text, Qt::AlignCenter | Qt::TextShowMnemonic);
}

void DrawOutline(const TControlCanvas& on) {
    on.Border(on.Place);
}

/// Bars stand where the client area leaves more room than a border takes.
void DrawScrollBox(const TControlCanvas& on) {
    const QRect client(on.Place.topLeft() + QPoint(on.Item.Client.Left, on.Item.Client.Top),
                       QSize(on.Item.Client.Width, on.Item.Client.Height));
    const QColor bar = on.Palette.color(QPalette::Mid);
    if (on.Place.right() - client.right() >= kLeastBar)
        on.Painter.fillRect(QRect(client.topRight() + QPoint(1, 0), on.Place.bottomRight()), bar);
    if (on.Place.bottom() - client.bottom() >= kLeastBar)
        on.Painter.fillRect(QRect(client.bottomLeft() + QPoint(0, 1), on.Place.bottomRight()), bar);
    if (!on.Is("BorderStyle", "bsNone")) on.Border(on.Place);
}

void DrawPages(const TControlCanvas& on) {
    const bool isLeft = on.Is("TabPosition", "tpLeft"), isRight = on.Is("TabPosition", "tpRight");
    const bool isBottom = on.Is("TabPosition", "tpBottom");
    // Towards the pages.
    const QPoint in = isLeft     ? QPoint(1, 0)
                      : isRight  ? QPoint(-1, 0)
                      : isBottom ? QPoint(0, -1)
                                 : QPoint(0, 1);
    const TLayoutRect tabs = on.Item.Parts.empty() ? TLayoutRect() : on.Item.Parts.front().Place;
    const QPoint depth(in.x() * tabs.Width, in.y() * tabs.Height);
    on.Border(on.Place.adjusted(std::max(0, depth.x()), std::max(0, depth.y()), std::min(0, depth.x()),
                                std::min(0, depth.y())));
    for (const TLayoutPart& part : on.Item.Parts) {
        const QRect tab = on.PartPlace(part.Place);
        on.Border(tab.united(tab.translated(in)));
        if (part.IsOn) on.Painter.fillRect(tab.adjusted(1, 1, -1, -1).translated(2 * in), on.Paper);
        if (tab.height() > tab.width() && (isLeft || isRight))
            UprightText(on, tab, part.Text, isLeft);
        else
            on.Text(tab, part.Text, Qt::AlignCenter | Qt::TextShowMnemonic);
    }
}

void DrawToolBar(const TControlCanvas& on) {
    on.Painter.setPen(on.Line());
    on.Painter.drawLine(on.Place.bottomLeft(), on.Place.bottomRight());
}

/// Each band with what it is moved by, and its text behind that.
void DrawCoolBar(const TControlCanvas& on) {
    DrawToolBar(on);
    for (const TLayoutPart& part : on.Item.Parts) {
        const QRect band = on.PartPlace(part.Place);
        on.Border(band);
        const bool isRight = on.Item.RightToLeft;
        QRect grip(0, 0, 3, band.height() - 2 * kTextRoom);
        grip.moveCenter(band.center());
        isRight ? grip.moveRight(band.right() - kTextRoom) : grip.moveLeft(band.left() + kTextRoom);
        on.Painter.fillRect(grip, QBrush(on.Line(), Qt::Dense4Pattern));
        const int room = 2 * kTextRoom + grip.width();
        on.Text(band.adjusted(isRight ? 0 : room, 0, isRight ? -room : 0, 0), part.Text,
                Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine);
    }
}

void DrawStatusBar(const TControlCanvas& on) {
    on.Painter.setPen(on.Line());
    on.Painter.drawLine(on.Place.topLeft(), on.Place.topRight());
    on.Text(on.Place.adjusted(kTextRoom, 0, -kTextRoom, 0), on.Item.Text, Qt::AlignLeft | Qt::AlignVCenter);
    for (const TLayoutPart& part : on.Item.Parts) {
        QRect panel = on.PartPlace(part.Place);
        panel.setBottom(on.Place.bottom());
        on.Painter.setPen(on.Line());
        on.Painter.drawLine(panel.right(), panel.top() + 2, panel.right(), panel.bottom() - 2);
        on.Text(panel.adjusted(kTextRoom, 0, -kTextRoom, 0), part.Text,
                static_cast<int>(Across(part.Alignment) | Qt::AlignVCenter) | Qt::TextSingleLine);
    }
}

void DrawSplitter(const TControlCanvas& on) {
    constexpr int kGrip = 12;
    const bool isUpright = on.Place.height() > on.Place.width();
    const QPoint half = isUpright ? QPoint(0, kGrip) : QPoint(kGrip, 0);
    on.Painter.setPen(QPen(on.Line(), 2, Qt::DotLine));
    on.Painter.drawLine(on.Place.center() - half, on.Place.center() + half);
}

void DrawDividerBevel(const TControlCanvas& on) {
    on.Painter.setPen(on.Line());
    on.Painter.drawLine(on.Place.left(), on.Place.center().y(), on.Place.right(), on.Place.center().y());
    const int width =
        on.Painter.fontMetrics().size(Qt::TextShowMnemonic, QString::fromUtf8(on.Item.Text)).width();
    const QRect title = on.PartPlace({2 * kTextRoom, 0, width + 2 * kTextRoom, on.Item.Place.Height});
    if (!on.Item.Text.empty()) on.Painter.fillRect(title, on.Paper);
    on.Text(title, on.Item.Text, Qt::AlignCenter | Qt::TextShowMnemonic);
}

}  // namespace tml

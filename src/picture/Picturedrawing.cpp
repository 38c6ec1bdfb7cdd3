#include "picture/Picturedrawing.h"

#include "picture/Controlcanvas.h"
#include "picture/Formcolours.h"
#include "picture/Formglyphs.h"

namespace tml {

void DrawPicture(const TControlCanvas& on) {
    const QImage image = ImageIn(*on.Item.Node);
    if (image.isNull()) return on.Placeholder(on.Place);
    const bool fits = image.width() <= on.Place.width() && image.height() <= on.Place.height();
    QSize size = image.size();
    if (on.IsOn("Proportional") && (on.IsOn("Stretch") || !fits))
        size.scale(on.Place.size(), Qt::KeepAspectRatio);
    else if (on.IsOn("Stretch"))
        size = on.Place.size();
    QRect place(on.Place.topLeft(), size);
    if (on.IsOn("Center")) place.moveCenter(on.Place.center());
    on.Painter.drawImage(place, image);
}

void DrawShape(const TControlCanvas& on) {
    const QColor brush = on.Item.Node->Find("Brush.Color") == nullptr
                             ? on.Paper
                             : ColourOf(on.Item.Node->Find("Brush.Color")->Text, on.Palette);
    const bool isRound = on.Is("Shape", "stCircle") || on.Is("Shape", "stEllipse");
    on.Painter.fillRect(on.Place, on.Palette.color(QPalette::Window));
    on.Painter.setPen(on.Line());
    on.Painter.setBrush(brush.isValid() ? QBrush(brush) : QBrush(Qt::NoBrush));
    const QRect outline = on.Place.adjusted(0, 0, -1, -1);
    isRound ? on.Painter.drawEllipse(outline) : on.Painter.drawRect(outline);
}

/// In the icon the letters that its class begins with, which tell it from others.
void DrawComponent(const TControlCanvas& on) {
    constexpr int kLetters = 3, kFrom = 1;
    QRect icon(0, on.Place.top(), kComponentIcon, kComponentIcon);
    icon.moveLeft(on.Place.center().x() - kComponentIcon / 2);
    on.PushButton(icon, on.Item.Node->ClassName.substr(
                            std::min<std::size_t>(kFrom, on.Item.Node->ClassName.size()), kLetters));
    on.Text(on.Place.adjusted(0, kComponentIcon, 0, 0), on.Item.Text, Qt::AlignCenter | Qt::TextSingleLine);
}

void DrawNamedBox(const TControlCanvas& on) {
    on.Painter.setPen(QPen(on.Line(), 1, Qt::DashLine));
    on.Painter.setBrush(Qt::NoBrush);
    on.Painter.drawRect(on.Place.adjusted(0, 0, -1, -1));
    const std::string separator = on.Item.Node->Name.empty() ? "" : ": ";
    on.Text(on.Place.adjusted(kTextRoom, 0, -kTextRoom, 0),
            on.Item.Node->Name + separator + on.Item.Node->ClassName, Qt::AlignCenter | Qt::TextSingleLine);
}

}  // namespace tml

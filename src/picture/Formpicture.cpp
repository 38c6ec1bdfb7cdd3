#include "picture/Formpicture.h"

#include <QPainter>
#include <algorithm>

#include "base/Format.h"
#include "picture/Formmeasure.h"
#include "picture/Formpainter.h"

namespace tml {
namespace {

QString SizeNote(const TLayoutRect& form) {
    const std::string size = Format("%d x %d", form.Width, form.Height);
    return QString::fromStdString(
        Format("Of %s pixels only %d x %d are drawn", size, kLargestPicture, kLargestPicture));
}

}  // namespace

QSize PictureSize(const TFormLayout& layout) {
    const TLayoutRect& form = layout.Items.front().Place;
    return {std::clamp(form.Width, 1, kLargestPicture), std::clamp(form.Height, 1, kLargestPicture)};
}

QImage DrawnForm(const TFormLayout& layout, const QPalette& palette, double scale) {
    const QSize size = PictureSize(layout);
    const QSize scaled = (QSizeF(size) * scale).toSize();
    QImage image(scaled.expandedTo({1, 1}).boundedTo({kLargestPicture, kLargestPicture}),
                 QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Window));
    QPainter painter(&image);
    painter.scale(scale, scale);
    PaintForm(painter, layout, palette, QRect({0, 0}, size));
    return image;
}

QStringList NotesOf(const TFormLayout& layout) {
    QStringList notes;
    for (const std::string& note : layout.Notes)
        notes += QString::fromStdString(note);
    for (const QString& font : MissingFonts(layout))
        notes += "Another font stands for " + font;
    if (const QStringList controls = WithoutGlyphs(layout); !controls.isEmpty())
        notes += "No font has all characters of the texts of " + controls.join(", ");
    const TLayoutRect& form = layout.Items.front().Place;
    if (std::max(form.Width, form.Height) > kLargestPicture) notes += SizeNote(form);
    return notes;
}

}  // namespace tml

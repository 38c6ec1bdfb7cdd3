#include "picture/Formglyphs.h"

#include <algorithm>
#include <string_view>

#include "base/Utf8.h"

namespace tml {
namespace {

/// In front of the file of a picture.
constexpr std::size_t kLength = 4;
constexpr int kMostGlyphs = 5;

QImage Decoded(std::string_view bytes) {
    return QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()));
}

/// Some kinds of pictures have their length in front.
QImage DecodedWithLength(std::string_view bytes) {
    const QImage image = bytes.size() > kLength ? Decoded(bytes.substr(kLength)) : QImage();
    return image.isNull() ? Decoded(bytes) : image;
}

std::string_view BytesOf(const TLayoutNode& node, std::string_view property) {
    const TFormValue* const value = node.Find(property);
    return value == nullptr || value->Kind != TFormValueKind::Binary ? std::string_view() : value->Text;
}

int GlyphCount(const TLayoutNode& button) {
    const TFormValue* const given = button.Find("NumGlyphs");
    return given == nullptr ? 1 : std::clamp(QString::fromUtf8(given->Text).toInt(), 1, kMostGlyphs);
}

QImage SeenThrough(const QImage& image) {
    if (image.isNull() || image.hasAlphaChannel()) return image;
    QImage made = image.convertToFormat(QImage::Format_ARGB32);
    const QRgb paper = made.pixel(0, made.height() - 1);
    for (int y = 0; y < made.height(); ++y)
        for (int x = 0; x < made.width(); ++x)
            if (made.pixel(x, y) == paper) made.setPixel(x, y, 0);
    return made;
}

}  // namespace

QImage GlyphIn(const TLayoutNode& button) {
    QImage all = DecodedWithLength(BytesOf(button, "Glyph.Data"));
    if (all.isNull()) return all;
    return SeenThrough(all.copy(0, 0, all.width() / GlyphCount(button), all.height()));
}

QImage ImageIn(const TLayoutNode& image) {
    const std::string_view bytes = BytesOf(image, "Picture.Data");
    // The name of its class stands in front, with its length in a byte.
    const std::size_t begin = bytes.empty() ? 0 : static_cast<unsigned char>(bytes.front()) + std::size_t{1};
    return begin >= bytes.size() ? QImage() : DecodedWithLength(bytes.substr(begin));
}

}  // namespace tml

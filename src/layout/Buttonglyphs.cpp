#include "layout/Buttonglyphs.h"

#include <algorithm>
#include <cstdint>

#include "base/Utf8.h"
#include "layout/Boxproperties.h"

namespace tml {
namespace {

struct TButtonKind {
    std::string_view Name;
    std::string_view Caption;
};

constexpr TButtonKind kButtonKinds[] = {
    {"bkOK", "&OK"},
    {"bkCancel", "Cancel"},
    {"bkHelp", "&Help"},
    {"bkYes", "&Yes"},
    {"bkNo", "&No"},
    {"bkClose", "&Close"},
    {"bkAbort", "Abort"},
    {"bkRetry", "&Retry"},
    {"bkIgnore", "&Ignore"},
    {"bkAll", "&All"},
    {"bkNoToAll", "No to all"},
    {"bkYesToAll", "Yes to &All"},
};

/// Of the theme's pictures.
constexpr TLayoutSize kKindGlyph = {20, 20};
constexpr TLayoutSize kOtherGlyph = {16, 16};
/// A bitmap in a form: its length in four bytes, then the file; its width and height stand in that.
constexpr std::size_t kBitmap = 4;
constexpr std::size_t kBitmapWidth = kBitmap + 18;
constexpr std::size_t kBitmapHeight = kBitmap + 22;

int NumberAt(std::string_view bytes, std::size_t place) {
    std::uint32_t number = 0;
    for (std::size_t i = 4; i-- > 0;)
        number = number << 8 | static_cast<unsigned char>(bytes[place + i]);
    return static_cast<int>(std::min<std::uint32_t>(number, 1000));
}

TLayoutSize SizeOfBitmap(std::string_view bytes) {
    if (bytes.size() < kBitmapHeight + 4 || bytes.substr(kBitmap, 2) != "BM") return kOtherGlyph;
    return {NumberAt(bytes, kBitmapWidth), NumberAt(bytes, kBitmapHeight)};
}

}  // namespace

std::string_view CaptionOfKind(std::string_view kind) {
    for (const TButtonKind& one : kButtonKinds)
        if (SameText(kind, one.Name)) return one.Caption;
    return {};
}

TLayoutSize GlyphOf(const TLayoutNode& button) {
    if (const TFormValue* data = button.Find("Glyph.Data"); data != nullptr) {
        TLayoutSize size = SizeOfBitmap(data->Text);
        size.Width /= std::clamp(LengthIn(button.Find("NumGlyphs")).value_or(1), 1, 5);
        return size;
    }
    return CaptionOfKind(NameIn(button.Find("Kind"))).empty() ? TLayoutSize() : kKindGlyph;
}

}  // namespace tml

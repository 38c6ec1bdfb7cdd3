#include "desktop/Formmeasure.h"

#include <QFontDatabase>
#include <algorithm>
#include <set>

#include "base/Utf8.h"
#include "desktop/Texts.h"

namespace tml {
namespace {

constexpr int kLargestFont = 2000;  ///< pixels; more is no text that anyone reads

bool IsPlatformFont(const std::string& name) {
    return name.empty() || SameText(name, "default");
}

}  // namespace

QFont FontOf(const TLayoutFont& font) {
    QFont made;
    if (!IsPlatformFont(font.Name)) made.setFamily(ToQt(font.Name));
    if (font.Height > 0) made.setPixelSize(std::min(font.Height, kLargestFont));
    made.setBold(font.Bold);
    made.setItalic(font.Italic);
    made.setUnderline(font.Underline);
    made.setStrikeOut(font.StrikeOut);
    return made;
}

int TFormMeasure::Width(std::string_view line, const TLayoutFont& font) const {
    return Metrics(font).horizontalAdvance(ToQt(line));
}

int TFormMeasure::LineHeight(const TLayoutFont& font) const {
    return Metrics(font).height();
}

const QFontMetrics& TFormMeasure::Metrics(const TLayoutFont& font) const {
    const std::string key =
        font.Name + '\t' + std::to_string(font.Height) + (font.Bold ? "b" : "") + (font.Italic ? "i" : "");
    const auto known = metrics_.find(key);
    return known != metrics_.end() ? known->second : metrics_.emplace(key, FontOf(font)).first->second;
}

QStringList MissingFonts(const TFormLayout& layout) {
    std::set<std::string> names;
    for (const TLayoutItem& item : layout.Items)
        if (!IsPlatformFont(item.Font.Name)) names.insert(item.Font.Name);
    QStringList missing;
    for (const std::string& name : names)
        if (!QFontDatabase::hasFamily(ToQt(name))) missing += ToQt(name);
    return missing;
}

}  // namespace tml

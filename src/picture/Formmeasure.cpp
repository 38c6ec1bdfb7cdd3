#include "picture/Formmeasure.h"

#include <QFontDatabase>
#include <algorithm>
#include <iterator>
#include <set>

#include "base/Utf8.h"

namespace tml {
namespace {

constexpr int kLargestFont = 2000;  ///< pixels; more is no text that anyone reads

bool IsPlatformFont(const std::string& name) {
    return name.empty() || SameText(name, "default");
}

/// Names that stand for whatever the machine has of a kind.
bool IsGeneric(const std::string& name) {
    constexpr std::string_view kNames[] = {"Sans", "Sans Serif", "Serif", "Monospace"};
    return std::any_of(std::begin(kNames), std::end(kNames),
                       [&](std::string_view one) { return SameText(name, one); });
}

/// Characters that every font has, and those that none has a picture of, are not asked for.
bool HasGlyphs(const QFontMetrics& metrics, const std::string& text) {
    if (std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; }))
        return true;
    const auto codes = QString::fromUtf8(text).toUcs4();
    return std::all_of(codes.begin(), codes.end(), [&](char32_t code) {
        return !QChar::isPrint(code) || QChar::isSpace(code) || metrics.inFontUcs4(code);
    });
}

bool HasGlyphs(const QFontMetrics& metrics, const TLayoutItem& item) {
    return HasGlyphs(metrics, item.Text) &&
           std::all_of(item.Parts.begin(), item.Parts.end(),
                       [&](const TLayoutPart& part) { return HasGlyphs(metrics, part.Text); });
}

}  // namespace

QFont FontOf(const TLayoutFont& font) {
    QFont made;
    if (!IsPlatformFont(font.Name)) made.setFamily(QString::fromUtf8(font.Name));
    if (font.Height > 0) made.setPixelSize(std::min(font.Height, kLargestFont));
    made.setBold(font.Bold);
    made.setItalic(font.Italic);
    made.setUnderline(font.Underline);
    made.setStrikeOut(font.StrikeOut);
    return made;
}

int TFormMeasure::Width(std::string_view line, const TLayoutFont& font) const {
    return Metrics(font).horizontalAdvance(QString::fromUtf8(line));
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

bool HasFonts() {
    // The toolkit has the generic names whatever they stand for.
    const QStringList families = QFontDatabase::families();
    return std::any_of(families.begin(), families.end(),
                       [](const QString& family) { return !IsGeneric(family.toStdString()); });
}

QStringList MissingFonts(const TFormLayout& layout) {
    std::set<std::string> names;
    for (const TLayoutItem& item : layout.Items)
        if (!IsPlatformFont(item.Font.Name)) names.insert(item.Font.Name);
    QStringList missing;
    for (const std::string& name : names)
        if (!IsGeneric(name) && !QFontDatabase::hasFamily(QString::fromUtf8(name)))
            missing += QString::fromUtf8(name);
    return missing;
}

QStringList WithoutGlyphs(const TFormLayout& layout) {
    const TFormMeasure measure;
    QStringList names;
    for (const TLayoutItem& item : layout.Items)
        if (item.Seen.Width > 0 && !HasGlyphs(measure.Metrics(item.Font), item))
            names += QString::fromUtf8(item.Node->Name);
    names.removeDuplicates();
    return names;
}

}  // namespace tml

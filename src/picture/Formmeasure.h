#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QStringList>
#include <map>

#include "layout/Formlayout.h"

namespace tml {

/// The font that a form asks for, or what the machine has in its place.
QFont FontOf(const TLayoutFont& font);

/// Texts as they are drawn with FontOf.
class TFormMeasure : public ITextMeasure {
  public:
    int Width(std::string_view line, const TLayoutFont& font) const override;
    int LineHeight(const TLayoutFont& font) const override;
    /// Of FontOf.
    const QFontMetrics& Metrics(const TLayoutFont& font) const;

  private:
    mutable std::map<std::string, QFontMetrics> metrics_;
};

/// Whether the machine has any.
bool HasFonts();
/// The fonts of a form that the machine has not, each once.
QStringList MissingFonts(const TFormLayout& layout);

/// The controls that are seen and have characters for which no font of the machine has a glyph, by name.
QStringList WithoutGlyphs(const TFormLayout& layout);

}  // namespace tml

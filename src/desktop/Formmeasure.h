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

  private:
    const QFontMetrics& Metrics(const TLayoutFont& font) const;

    mutable std::map<std::string, QFontMetrics> metrics_;
};

/// The fonts of a form that the machine has not, each once.
QStringList MissingFonts(const TFormLayout& layout);

}  // namespace tml

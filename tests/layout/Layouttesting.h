#pragma once

#include <string>

#include "layout/Formlayout.h"

namespace tml {

/// Every character takes half of the font's height, a line one and a quarter of it; the platform's own font
/// is 12 pixels high.
class TFixedMeasure : public ITextMeasure {
  public:
    int Width(std::string_view line, const TLayoutFont& font) const override {
        return static_cast<int>(line.size()) * HeightOf(font) / 2;
    }
    int LineHeight(const TLayoutFont& font) const override { return HeightOf(font) * 5 / 4; }

  private:
    static int HeightOf(const TLayoutFont& font) { return font.Height > 0 ? font.Height : 12; }
};

/// Lays out a form that is given as text.
struct TLaidOut {
    explicit TLaidOut(const std::string& formText, const TLayoutOptions& options = {});

    /// "Button1 8,16 75x25", a line a control in the order of the layout, parents and their children; without
    /// the form.
    std::string Places() const;

    TLayoutNode Form;
    TFormLayout Layout;
};

}  // namespace tml

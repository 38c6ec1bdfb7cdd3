#pragma once

#include <string>
#include <string_view>

namespace tml {

/// A font as a form asks for it.
struct TLayoutFont {
    std::string Name;  ///< "" for the platform's own
    int Height = 0;    ///< of the em, in pixels; 0 for the platform's own
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool StrikeOut = false;
    /// "clRed" or a number as the form holds it; "" for the platform's own.
    std::string Color;

    bool operator==(const TLayoutFont&) const = default;
};

/// How much room texts take, which only a toolkit knows.
class ITextMeasure {
  public:
    virtual ~ITextMeasure() = default;
    /// Width of one line of UTF-8 text, in pixels.
    virtual int Width(std::string_view line, const TLayoutFont& font) const = 0;
    /// From one line's top to the next one's, in pixels.
    virtual int LineHeight(const TLayoutFont& font) const = 0;
};

}  // namespace tml

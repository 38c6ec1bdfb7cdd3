#pragma once

namespace tml {

/// Lengths and places are pixels of the screen that the form is laid out for; y points down.
struct TLayoutSize {
    int Width = 0;
    int Height = 0;

    bool operator==(const TLayoutSize&) const = default;
};

struct TLayoutRect {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    bool operator==(const TLayoutRect&) const = default;
};

}  // namespace tml

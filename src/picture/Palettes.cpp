#include "picture/Palettes.h"

#include <array>

namespace tml {
namespace {

struct TRoleColour {
    QPalette::ColorRole Role;
    const char* Light;
    const char* Dark;
};

constexpr std::array kColours{
    TRoleColour{QPalette::Window, "#f3f4f6", "#2d3137"},
    TRoleColour{QPalette::WindowText, "#1d2126", "#dfe2e6"},
    TRoleColour{QPalette::Base, "#ffffff", "#1b1e22"},
    TRoleColour{QPalette::AlternateBase, "#f6f8fa", "#22262b"},
    TRoleColour{QPalette::Text, "#1d2126", "#dfe2e6"},
    TRoleColour{QPalette::PlaceholderText, "#767d86", "#8b929b"},
    TRoleColour{QPalette::Button, "#eceef1", "#3a3f46"},
    TRoleColour{QPalette::ButtonText, "#1d2126", "#dfe2e6"},
    TRoleColour{QPalette::BrightText, "#b3261e", "#ff8a80"},
    TRoleColour{QPalette::ToolTipBase, "#ffffff", "#3a3f46"},
    TRoleColour{QPalette::ToolTipText, "#1d2126", "#dfe2e6"},
    TRoleColour{QPalette::Highlight, "#2f6fb5", "#3d7cc4"},
    TRoleColour{QPalette::HighlightedText, "#ffffff", "#ffffff"},
    TRoleColour{QPalette::Link, "#1f5fa8", "#7fb0f0"},
    TRoleColour{QPalette::Light, "#ffffff", "#3a3f46"},
    TRoleColour{QPalette::Midlight, "#e4e7ea", "#31363c"},
    TRoleColour{QPalette::Mid, "#c3c8ce", "#1a1c20"},
    TRoleColour{QPalette::Dark, "#a4abb3", "#16181b"},
    TRoleColour{QPalette::Shadow, "#767d86", "#0e0f11"},
};

constexpr std::array kGreyed{QPalette::WindowText, QPalette::Text, QPalette::ButtonText};
constexpr const char* kGreyLight = "#9aa1a9";
constexpr const char* kGreyDark = "#6c737b";

}  // namespace

QPalette MakePalette(bool dark) {
    QPalette palette;
    for (const TRoleColour& colour : kColours)
        palette.setColor(colour.Role, QColor(dark ? colour.Dark : colour.Light));
    for (const QPalette::ColorRole role : kGreyed)
        palette.setColor(QPalette::Disabled, role, QColor(dark ? kGreyDark : kGreyLight));
    return palette;
}

}  // namespace tml

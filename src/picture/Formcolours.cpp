#include "picture/Formcolours.h"

#include <QString>
#include <array>
#include <cstdlib>

#include "base/Utf8.h"

namespace tml {
namespace {

constexpr int kLeastContrast = 70;  ///< of lightness, which is 0 to 255

struct TNamedRole {
    const char* Name;
    QPalette::ColorRole Role;
};

constexpr std::array kSystemColours{
    TNamedRole{"clBtnFace", QPalette::Window},
    TNamedRole{"clForm", QPalette::Window},
    TNamedRole{"clMenu", QPalette::Window},
    TNamedRole{"clMenuBar", QPalette::Window},
    TNamedRole{"clScrollBar", QPalette::Window},
    TNamedRole{"clBackground", QPalette::Window},
    TNamedRole{"clAppWorkSpace", QPalette::Mid},
    TNamedRole{"clWindow", QPalette::Base},
    TNamedRole{"clWindowText", QPalette::Text},
    TNamedRole{"clBtnText", QPalette::ButtonText},
    TNamedRole{"clMenuText", QPalette::WindowText},
    TNamedRole{"clCaptionText", QPalette::WindowText},
    TNamedRole{"clGrayText", QPalette::PlaceholderText},
    TNamedRole{"clHighlight", QPalette::Highlight},
    TNamedRole{"clActiveCaption", QPalette::Highlight},
    TNamedRole{"clHotLight", QPalette::Link},
    TNamedRole{"clHighlightText", QPalette::HighlightedText},
    TNamedRole{"clBtnShadow", QPalette::Dark},
    TNamedRole{"clInactiveCaption", QPalette::Mid},
    TNamedRole{"clBtnHighlight", QPalette::Light},
    TNamedRole{"cl3DLight", QPalette::Midlight},
    TNamedRole{"cl3DDkShadow", QPalette::Shadow},
    TNamedRole{"clWindowFrame", QPalette::Shadow},
    TNamedRole{"clInfoBk", QPalette::ToolTipBase},
    TNamedRole{"clInfoText", QPalette::ToolTipText},
};

struct TNamedColour {
    const char* Name;
    QRgb Colour;
};

constexpr std::array kNamedColours{
    TNamedColour{"clBlack", 0x000000},      TNamedColour{"clMaroon", 0x800000},
    TNamedColour{"clGreen", 0x008000},      TNamedColour{"clOlive", 0x808000},
    TNamedColour{"clNavy", 0x000080},       TNamedColour{"clPurple", 0x800080},
    TNamedColour{"clTeal", 0x008080},       TNamedColour{"clGray", 0x808080},
    TNamedColour{"clSilver", 0xC0C0C0},     TNamedColour{"clRed", 0xFF0000},
    TNamedColour{"clLime", 0x00FF00},       TNamedColour{"clYellow", 0xFFFF00},
    TNamedColour{"clBlue", 0x0000FF},       TNamedColour{"clFuchsia", 0xFF00FF},
    TNamedColour{"clAqua", 0x00FFFF},       TNamedColour{"clWhite", 0xFFFFFF},
    TNamedColour{"clMoneyGreen", 0xC0DCC0}, TNamedColour{"clSkyBlue", 0xA6CAF0},
    TNamedColour{"clCream", 0xFFFBF0},      TNamedColour{"clMedGray", 0xA0A0A4},
    TNamedColour{"clLtGray", 0xC0C0C0},     TNamedColour{"clDkGray", 0x808080},
};

QColor ColourOfNumber(const std::string& text) {
    bool isNumber = false;
    QString digits = QString::fromUtf8(text);
    const int base = digits.startsWith('$') ? 16 : 10;
    if (base == 16) digits.remove(0, 1);
    const qlonglong number = digits.toLongLong(&isNumber, base);
    // A byte above those of the colour says which palette of the system it is from.
    if (!isNumber || number < 0 || number > 0x2FFFFFF) return {};
    return QColor(static_cast<int>(number & 0xFF), static_cast<int>(number >> 8 & 0xFF),
                  static_cast<int>(number >> 16 & 0xFF));
}

}  // namespace

QColor ColourOf(const std::string& name, const QPalette& palette) {
    for (const TNamedRole& one : kSystemColours)
        if (SameText(name, one.Name)) return palette.color(one.Role);
    for (const TNamedColour& one : kNamedColours)
        if (SameText(name, one.Name)) return QColor(one.Colour);
    return ColourOfNumber(name);
}

QColor ReadableOn(const QColor& paper, const QColor& colour) {
    const auto grey = [](const QColor& one) { return qGray(one.rgb()); };
    if (std::abs(grey(paper) - grey(colour)) >= kLeastContrast) return colour;
    return grey(paper) > 127 ? QColor(Qt::black) : QColor(Qt::white);
}

}  // namespace tml

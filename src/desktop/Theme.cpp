#include "desktop/Theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <array>

#include "desktop/Icons.h"

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

constexpr int kPortalTimeout = 200;  ///< ms
constexpr uint kPreferDark = 1;

QPalette MakePalette(bool dark) {
    QPalette palette;
    for (const TRoleColour& colour : kColours)
        palette.setColor(colour.Role, QColor(dark ? colour.Dark : colour.Light));
    for (const QPalette::ColorRole role : kGreyed)
        palette.setColor(QPalette::Disabled, role, QColor(dark ? kGreyDark : kGreyLight));
    return palette;
}

/// What the desktop says over its settings portal; a desktop without one says nothing.
bool PortalPrefersDark() {
    QDBusMessage question =
        QDBusMessage::createMethodCall("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                                       "org.freedesktop.portal.Settings", "Read");
    question << QString("org.freedesktop.appearance") << QString("color-scheme");
    const QDBusMessage answer = QDBusConnection::sessionBus().call(question, QDBus::Block, kPortalTimeout);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return false;
    QVariant value = answer.arguments().first();
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt() == kPreferDark;
}

/// Outlines of boxes that are not ticked are hardly seen in a dark window, and the signs on the title bars of
/// docks and at the end of a tool bar that is too narrow are drawn for light ones.
class TThemeStyle : public QProxyStyle {
  public:
    TThemeStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool isRadio = element == PE_IndicatorRadioButton;
        if ((!isRadio && element != PE_IndicatorCheckBox) || !IsDark(option->palette)) return;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing, isRadio);
        painter->setPen(option->palette.color(QPalette::PlaceholderText));
        painter->setBrush(Qt::NoBrush);
        const QRect outline = option->rect.adjusted(0, 0, -1, -1);
        isRadio ? painter->drawEllipse(outline) : painter->drawRect(outline);
        painter->restore();
    }
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override {
        if (icon == SP_TitleBarCloseButton) return PictureOf("dockclose");
        if (icon == SP_TitleBarNormalButton) return PictureOf("float");
        if (icon == SP_ToolBarHorizontalExtensionButton) return PictureOf("more");
        return QProxyStyle::standardIcon(icon, option, widget);
    }
};

}  // namespace

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
}

void SetTheme(QApplication& application, TTheme theme) {
    const bool dark = theme == TTheme::Dark ||
                      (theme == TTheme::Desktop && (IsDark(QApplication::palette()) || PortalPrefersDark()));
    application.setStyle(new TThemeStyle);
    QApplication::setPalette(MakePalette(dark));
}

}  // namespace tml

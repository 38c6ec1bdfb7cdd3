#include "desktop/Theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>

#include "desktop/Icons.h"
#include "picture/Palettes.h"

namespace tml {
namespace {

constexpr int kPortalTimeout = 200;  ///< ms
constexpr uint kPreferDark = 1;

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
        if (element == PE_IndicatorHeaderArrow) return DrawSortArrow(*option, painter, widget);
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
    /// Upwards where the rows ascend, which the style takes the other way.
    void DrawSortArrow(const QStyleOption& option, QPainter* painter, const QWidget* widget) const {
        const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(&option);
        if (header == nullptr || header->sortIndicator == QStyleOptionHeader::None) return;
        QStyleOptionHeader turned(*header);
        turned.sortIndicator = header->sortIndicator == QStyleOptionHeader::SortUp
                                   ? QStyleOptionHeader::SortDown
                                   : QStyleOptionHeader::SortUp;
        QProxyStyle::drawPrimitive(PE_IndicatorHeaderArrow, &turned, painter, widget);
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

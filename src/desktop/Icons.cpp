#include "desktop/Icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>
#include <array>

#include "desktop/Texts.h"

namespace tml {
namespace {

/// The colours that stand in the drawings for the text's and the highlight's.
constexpr const char* kInk = "#000000";
constexpr const char* kAccent = "#0000ff";

/// Draws in the colours of the palette at the time of painting, so that a change of it needs no new icons.
class TPaletteIcon : public QIconEngine {
  public:
    explicit TPaletteIcon(const QByteArray& svg) : svg_(svg) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto accent = mode == QIcon::Disabled ? QPalette::WindowText : QPalette::Link;
        QByteArray svg = svg_;
        svg.replace(kInk, palette.color(group, QPalette::WindowText).name().toLatin1());
        svg.replace(kAccent, palette.color(group, accent).name().toLatin1());
        QSvgRenderer(svg).render(painter, rect);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new TPaletteIcon(svg_); }

  private:
    QByteArray svg_;
};

struct TCommandIcon {
    std::string_view Command;
    const char* File;
};

constexpr std::array kCommandIcons{
    TCommandIcon{"Open", "open"},
    TCommandIcon{"Save", "save"},
    TCommandIcon{"SaveAll", "saveall"},
    TCommandIcon{"Undo", "undo"},
    TCommandIcon{"Redo", "redo"},
    TCommandIcon{"Cut", "cut"},
    TCommandIcon{"Copy", "copy"},
    TCommandIcon{"Paste", "paste"},
    TCommandIcon{"Find", "find"},
    TCommandIcon{"FindPhrase", "find"},
    TCommandIcon{"ReplacePhrase", "replace"},
    TCommandIcon{"Contents", "help"},
    TCommandIcon{"HelpTopics", "help"},
    TCommandIcon{"Help", "help"},
    TCommandIcon{"mlLangExpertMenuItem", "expert"},
    TCommandIcon{"Translate", "translate"},
    TCommandIcon{"Wizard", "wizard"},
    TCommandIcon{"Wizards", "wizard"},
    TCommandIcon{"Languages", "languages"},
    TCommandIcon{"Exclude", "exclude"},
    TCommandIcon{"CheckBadIDs", "check"},
    TCommandIcon{"Options", "options"},
    TCommandIcon{"SourceWithForm", "source"},
    TCommandIcon{"Translatesource", "source"},
    TCommandIcon{"ViewForm", "form"},
    TCommandIcon{"ModifySource", "apply"},
    TCommandIcon{"Cancel", "cancel"},
    TCommandIcon{"acDeleteRow", "delete"},
    TCommandIcon{"acExclude", "exclude"},
    TCommandIcon{"acMarktoIgnore", "ignore"},
    TCommandIcon{"acSwitchDeleted", "trash"},
    TCommandIcon{"acRestoreDeletedRow", "restore"},
    TCommandIcon{"acStartID", "number"},
    TCommandIcon{"acViewSkipped", "skipped"},
};

/// A component's name without the prefix of a tool button and the number behind it.
std::string_view CommandOf(std::string_view name) {
    if (name.starts_with("tb")) name.remove_prefix(2);
    while (!name.empty() && name.back() >= '0' && name.back() <= '9')
        name.remove_suffix(1);
    return name;
}

}  // namespace

QIcon PictureOf(const QString& file) {
    QFile svg(":/icons/" + file + ".svg");
    return svg.open(QIODevice::ReadOnly) ? QIcon(new TPaletteIcon(svg.readAll())) : QIcon();
}

QIcon IconOf(std::string_view name) {
    const std::string_view command = CommandOf(name);
    for (const TCommandIcon& icon : kCommandIcons)
        if (icon.Command == command) return PictureOf(icon.File);
    return {};
}

QIcon ProgramIcon() {
    return QIcon(":/icons/program.svg");
}

}  // namespace tml

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

/// The colours that stand in the drawings for those of the palette.
constexpr const char* kInk = "#000000";
constexpr const char* kAccent = "#0000ff";
constexpr const char* kPaper = "#ffffff";

struct TIconColours {
    QColor Ink;
    QColor Accent;
    QColor Paper;
};

TIconColours ColoursOf(const QPalette& palette, QIcon::Mode mode) {
    const QColor grey = palette.color(QPalette::Disabled, QPalette::WindowText);
    const QColor onHighlight = palette.color(QPalette::HighlightedText);
    const QColor base = palette.color(QPalette::Base);
    if (mode == QIcon::Disabled) return {grey, grey, base};
    if (mode == QIcon::Selected) return {onHighlight, onHighlight, palette.color(QPalette::Highlight)};
    return {palette.color(QPalette::WindowText), palette.color(QPalette::Link), base};
}

/// Draws in the colours of the palette at the time of painting, so that a change of it needs no new icons.
class TPaletteIcon : public QIconEngine {
  public:
    explicit TPaletteIcon(const QByteArray& svg) : svg_(svg) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const TIconColours colours = ColoursOf(QGuiApplication::palette(), mode);
        QByteArray svg = svg_;
        // By way of words: a colour of the palette may be one of the drawing's.
        svg.replace(kPaper, "paper").replace(kInk, "ink").replace(kAccent, "accent");
        svg.replace("paper", colours.Paper.name().toLatin1());
        svg.replace("ink", colours.Ink.name().toLatin1());
        svg.replace("accent", colours.Accent.name().toLatin1());
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
    TCommandIcon{"SaveForms", "saveforms"},
    TCommandIcon{"LoadForms", "loadforms"},
    TCommandIcon{"SaveProject", "saveproject"},
    TCommandIcon{"LoadProject", "loadproject"},
    TCommandIcon{"Exclude", "exclude"},
    TCommandIcon{"Dictionary", "dictionary"},
    TCommandIcon{"CheckBadIDs", "check"},
    TCommandIcon{"Options", "options"},
    TCommandIcon{"AddExternalFile", "open"},
    TCommandIcon{"RemoveExternalFile", "delete"},
    TCommandIcon{"ProjectSettings", "project"},
    TCommandIcon{"SourceWithForm", "source"},
    TCommandIcon{"Translatesource", "source"},
    TCommandIcon{"ViewForm", "form"},
    TCommandIcon{"ModifySource", "apply"},
    TCommandIcon{"Cancel", "cancel"},
    TCommandIcon{"acDeleteRow", "delete"},
    TCommandIcon{"DeleteComponent", "delete"},
    TCommandIcon{"acExclude", "exclude"},
    TCommandIcon{"acMarktoIgnore", "ignore"},
    TCommandIcon{"acSwitchDeleted", "trash"},
    TCommandIcon{"acRestoreDeletedRow", "restore"},
    TCommandIcon{"acStartID", "number"},
    TCommandIcon{"acTakeRow", "take"},
    TCommandIcon{"acAbout", "info"},
    TCommandIcon{"acAddID", "take"},
    TCommandIcon{"acClear", "delete"},
    TCommandIcon{"acConfirm", "apply"},
    TCommandIcon{"acCopy", "copy"},
    TCommandIcon{"acCopyBase", "copy"},
    TCommandIcon{"acDeleteID", "trash"},
    TCommandIcon{"acHelp", "help"},
    TCommandIcon{"acJumpToSource", "source"},
    TCommandIcon{"acNextUntranslated", "down"},
    TCommandIcon{"acPaste", "paste"},
    TCommandIcon{"acRenameID", "edit"},
    TCommandIcon{"acTranslateEqual", "translate"},
    TCommandIcon{"acUndo", "undo"},
    TCommandIcon{"acRedo", "redo"},
    TCommandIcon{"acViewSkipped", "skipped"},
    TCommandIcon{"acNew", "new"},
    TCommandIcon{"acOpen", "open"},
    TCommandIcon{"acSave", "save"},
    TCommandIcon{"acSaveAs", "saveas"},
    TCommandIcon{"acAddEntry", "take"},
    TCommandIcon{"acDeleteEntries", "trash"},
    TCommandIcon{"acAddLanguage", "languages"},
    TCommandIcon{"acFill", "translate"},
    TCommandIcon{"acFillFromDictionary", "dictionary"},
    TCommandIcon{"acLearn", "loadforms"},
    TCommandIcon{"acTake", "take"},
    TCommandIcon{"acTakeAll", "takeall"},
    TCommandIcon{"acLeaveOut", "delete"},
    TCommandIcon{"acSkipUnit", "down"},
    TCommandIcon{"acShowChange", "view"},
    TCommandIcon{"SkippedStrings", "skipped"},
    TCommandIcon{"FileMenu", "open"},
    TCommandIcon{"EditMenu", "edit"},
    TCommandIcon{"SearchMenu", "find"},
    TCommandIcon{"ViewsMenu", "view"},
    TCommandIcon{"ProjectMenu", "project"},
    TCommandIcon{"RunMenu", "run"},
    TCommandIcon{"ComponentMenu", "component"},
    TCommandIcon{"ToolsMenu", "options"},
    TCommandIcon{"HelpMenu", "help"},
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

#include "picture/Formpainter.h"

#include <vector>

#include "picture/Boxdrawing.h"
#include "picture/Buttondrawing.h"
#include "picture/Controlcanvas.h"
#include "picture/Fielddrawing.h"
#include "picture/Formcolours.h"
#include "picture/Listdrawing.h"
#include "picture/Picturedrawing.h"

namespace tml {
namespace {

using TDraw = void (*)(const TControlCanvas&);

/// The part of the palette that a control's paper is where the form says nothing; NoRole for its parent's.
QPalette::ColorRole PaperOf(TLayoutKind kind) {
    switch (kind) {
        case TLayoutKind::Edit:
        case TLayoutKind::SpinEdit:
        case TLayoutKind::EditButton:
        case TLayoutKind::Memo:
        case TLayoutKind::ComboBox:
        case TLayoutKind::ListBox:
        case TLayoutKind::CheckListBox:
        case TLayoutKind::ListView:
        case TLayoutKind::TreeView:
        case TLayoutKind::Grid:
        case TLayoutKind::Calendar:
        case TLayoutKind::Shape:
            return QPalette::Base;
        case TLayoutKind::Button:
            return QPalette::Button;
        case TLayoutKind::Form:
            return QPalette::Window;
        default:
            return QPalette::NoRole;
    }
}

void DrawNothing(const TControlCanvas&) {}

// clang-format off
TDraw DrawingOf(TLayoutKind kind) {
    switch (kind) {
        case TLayoutKind::Form: return DrawForm;
        case TLayoutKind::Frame: case TLayoutKind::Page: return DrawNothing;
        case TLayoutKind::Panel: return DrawPanel;
        case TLayoutKind::GroupBox: case TLayoutKind::RadioGroup: case TLayoutKind::CheckGroup:
            return DrawGroupBox;
        case TLayoutKind::ScrollBox: return DrawScrollBox;
        case TLayoutKind::Bevel: case TLayoutKind::ProgressBar: return DrawOutline;
        case TLayoutKind::PageControl: case TLayoutKind::TabControl: return DrawPages;
        case TLayoutKind::Label: case TLayoutKind::StaticText: return DrawLabel;
        case TLayoutKind::Button: return DrawButton;
        case TLayoutKind::SpeedButton: case TLayoutKind::ToolButton: return DrawSpeedButton;
        case TLayoutKind::CheckBox: return DrawCheckBox;
        case TLayoutKind::RadioButton: return DrawRadioButton;
        case TLayoutKind::Edit: return DrawEdit;
        case TLayoutKind::SpinEdit: return DrawSpinEdit;
        case TLayoutKind::EditButton: return DrawEditButton;
        case TLayoutKind::Memo: return DrawMemo;
        case TLayoutKind::ComboBox: return DrawComboBox;
        case TLayoutKind::ListBox: case TLayoutKind::CheckListBox: case TLayoutKind::TreeView:
            return DrawList;
        case TLayoutKind::ListView: case TLayoutKind::Grid: return DrawColumns;
        case TLayoutKind::ToolBar: return DrawToolBar;
        case TLayoutKind::CoolBar: return DrawCoolBar;
        case TLayoutKind::StatusBar: return DrawStatusBar;
        case TLayoutKind::Splitter: return DrawSplitter;
        case TLayoutKind::TrackBar: return DrawTrackBar;
        case TLayoutKind::ScrollBar: return DrawScrollBar;
        case TLayoutKind::UpDown: return DrawUpDown;
        case TLayoutKind::Image: return DrawPicture;
        case TLayoutKind::Shape: return DrawShape;
        case TLayoutKind::DividerBevel: return DrawDividerBevel;
        case TLayoutKind::ButtonPanel: return DrawButtonPanel;
        case TLayoutKind::Component: return DrawComponent;
        case TLayoutKind::Calendar: case TLayoutKind::PaintBox: case TLayoutKind::Box: break;
    }
    return DrawNamedBox;
}
// clang-format on

void DrawItem(const TControlCanvas& on) {
    const bool fills = !on.Item.Color.empty() || PaperOf(on.Item.Kind) != QPalette::NoRole;
    if (fills && on.Item.Kind != TLayoutKind::Button && !on.IsOn("Transparent"))
        on.Painter.fillRect(on.Place, on.Paper);
    DrawingOf(on.Item.Kind)(on);
}

/// The colours behind the texts of the controls: their own, those of their kind, or their parents'.
std::vector<QColor> PapersOf(const TFormLayout& layout, const QPalette& palette) {
    std::vector<QColor> papers;
    papers.reserve(layout.Items.size());
    for (const TLayoutItem& item : layout.Items) {
        QColor paper = ColourOf(item.Color, palette);
        const QPalette::ColorRole role = PaperOf(item.Kind);
        if (!paper.isValid() && role != QPalette::NoRole) paper = palette.color(role);
        if (!paper.isValid())
            paper = item.Parent < 0 ? palette.color(QPalette::Window)
                                    : papers[static_cast<std::size_t>(item.Parent)];
        papers.push_back(paper);
    }
    return papers;
}

}  // namespace

void PaintForm(QPainter& painter, const TFormLayout& layout, const QPalette& palette, const QRect& area) {
    const std::vector<QColor> papers = PapersOf(layout, palette);
    for (std::size_t i = 0; i < layout.Items.size(); ++i) {
        const TLayoutItem& item = layout.Items[i];
        const QRect seen = RectOf(item.Seen) & area;
        if (seen.isEmpty()) continue;
        painter.save();
        painter.setClipRect(seen, Qt::IntersectClip);
        DrawItem({painter, item, palette, papers[i]});
        painter.restore();
    }
}

}  // namespace tml

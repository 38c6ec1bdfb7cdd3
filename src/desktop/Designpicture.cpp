#include "desktop/Designpicture.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "picture/Controlcanvas.h"

namespace tml {
namespace {

constexpr int kSelectionMark = 2;  ///< the frame around what is selected

/// Of every node its component's path: below the form or the frame that owns it.
std::unordered_map<const TLayoutNode*, std::string> PathsBelow(const TLayoutNode& form) {
    std::unordered_map<const TLayoutNode*, std::string> paths = {{&form, std::string()}};
    std::vector<std::pair<const TLayoutNode*, std::string>> open = {{&form, std::string()}};
    while (!open.empty()) {
        const auto [holder, owner] = open.back();
        open.pop_back();
        for (const TLayoutNode& child : holder->Children) {
            const std::string path = owner.empty() ? child.Name : owner + '.' + child.Name;
            paths.emplace(&child, path);
            open.emplace_back(&child, child.IsFrame ? path : owner);
        }
    }
    return paths;
}

}  // namespace

TDesignPicture::TDesignPicture(TFormDesign& design) : design_(design) {
    setFocusPolicy(Qt::StrongFocus);
}

void TDesignPicture::Show(TLayoutNode form, const TLayoutOptions& options) {
    TFormCanvas::Show(std::move(form), options);
    paths_ = PathsBelow(*Layout().Items.front().Node);
}

void TDesignPicture::paintEvent(QPaintEvent* event) {
    TFormCanvas::paintEvent(event);
    QPainter painter(this);
    QPen pen(palette().color(QPalette::Highlight));
    pen.setWidth(kSelectionMark);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    for (const int component : design_.Selected())
        if (const QRect place = PlaceOf(component); !place.isEmpty()) painter.drawRect(FrameAround(place));
}

/// Outside, where a text does not begin, as far as there is room.
QRect TDesignPicture::FrameAround(const QRect& place) const {
    constexpr int kOutside = kSelectionMark, kHalf = kSelectionMark / 2;
    return (place.adjusted(-kOutside, -kOutside, kOutside, kOutside) & rect())
        .adjusted(kHalf, kHalf, -kHalf, -kHalf);
}

int TDesignPicture::ComponentOf(const TLayoutItem& item) const {
    const auto path = paths_.find(item.Node);
    return path == paths_.end() ? -1 : design_.Find(path->second);
}

/// The page whose tab is there, -1 where there is none.
int TDesignPicture::PageAt(const TLayoutItem& control, const QPoint& at) const {
    if (control.Kind != TLayoutKind::PageControl) return -1;
    auto tab = control.Parts.begin();
    for (const TLayoutItem& page : Layout().Items) {
        const bool isIn =
            page.Parent >= 0 && &Layout().Items[static_cast<std::size_t>(page.Parent)] == &control;
        if (!isIn || !page.Visible || page.Kind != TLayoutKind::Page) continue;
        if (tab == control.Parts.end()) break;
        if (PlaceOfPart(control, (tab++)->Place).contains(at)) return ComponentOf(page);
    }
    return -1;
}

int TDesignPicture::ComponentAt(const QPoint& at) const {
    const auto found = std::find_if(
        Layout().Items.rbegin(), Layout().Items.rend(),
        [&](const TLayoutItem& item) { return RectOf(item.Seen).contains(at) && ComponentOf(item) >= 0; });
    if (found == Layout().Items.rend()) return 0;
    const int page = PageAt(*found, at);
    return page < 0 ? ComponentOf(*found) : page;
}

QRect TDesignPicture::PlaceOf(int component) const {
    for (const TLayoutItem& item : Layout().Items)
        if (item.Item < 0 && ComponentOf(item) == component) return RectOf(item.Seen);
    return {};
}

void TDesignPicture::mousePressEvent(QMouseEvent* event) {
    if (design_.Components().empty() || event->button() != Qt::LeftButton) return;
    const int component = ComponentAt(event->pos());
    if ((event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)) == 0) return OnSelect({component});
    std::vector<int> selected = design_.Selected();
    if (std::erase(selected, component) == 0) selected.push_back(component);
    OnSelect(selected);
}

void TDesignPicture::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) OnEdit();
}

void TDesignPicture::contextMenuEvent(QContextMenuEvent* event) {
    const std::vector<int> selected = design_.Selected();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QRect place = selected.empty() ? QRect() : PlaceOf(selected.front());
        return OnMenu(mapToGlobal(place.center()));
    }
    if (design_.Components().empty()) return;
    // The menu is that of all that is selected.
    const int component = ComponentAt(event->pos());
    if (std::find(selected.begin(), selected.end(), component) == selected.end()) OnSelect({component});
    OnMenu(event->globalPos());
}

void TDesignPicture::SelectNext(int step) {
    std::vector<int> drawn;
    for (const TLayoutItem& item : Layout().Items)
        if (item.Item < 0 && item.Seen.Width > 0 && ComponentOf(item) >= 0)
            drawn.push_back(ComponentOf(item));
    if (drawn.empty()) return;
    const std::vector<int> selected = design_.Selected();
    const auto place = std::find(drawn.begin(), drawn.end(), selected.empty() ? -1 : selected.back());
    const int count = static_cast<int>(drawn.size());
    const int from = place == drawn.end() ? (step > 0 ? -1 : 0) : static_cast<int>(place - drawn.begin());
    OnSelect({drawn[static_cast<std::size_t>((from + step + count) % count)]});
}

void TDesignPicture::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Right:
        case Qt::Key_Down:
            return SelectNext(1);
        case Qt::Key_Left:
        case Qt::Key_Up:
            return SelectNext(-1);
        case Qt::Key_Escape:
            return OnSelect({design_.ParentOfSelected()});
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return OnEdit();
        case Qt::Key_Delete:
            return OnDelete();
        default:
            return QWidget::keyPressEvent(event);
    }
}

}  // namespace tml

#include "desktop/Exclusionpicture.h"

#include <QMouseEvent>
#include <QPainter>

#include "base/Utf8.h"
#include "desktop/Texts.h"
#include "runtime/Partnodes.h"

namespace tml {
namespace {

constexpr const char* kNameless = "-";
constexpr int kHatchTint = 110;  ///< of 255
constexpr int kWashTint = 40;

QRect PlaceInPicture(const TLayoutRect& place) {
    return {place.Left, place.Top, place.Width, place.Height};
}

/// The paths of a form's components, upper-cased; below is the path of the frame around, with a dot.
void AddPathsBelow(const TLayoutNode& node, const std::string& below,
                   std::unordered_map<const TLayoutNode*, std::string>& paths) {
    for (const TLayoutNode& child : node.Children) {
        const bool isNameless = child.Name.empty();
        const std::string path = below + UpperCase(child.Name);
        paths.emplace(&child, isNameless ? kNameless : path);
        AddPathsBelow(child, child.IsFrame && !isNameless ? path + '.' : below, paths);
    }
}

std::vector<std::string> PathsInPicture(const TFormLayout& layout) {
    std::unordered_map<const TLayoutNode*, std::string> paths;
    const TLayoutNode& form = *layout.Items.front().Node;
    paths.emplace(&form, std::string());
    AddPathsBelow(form, {}, paths);
    std::vector<std::string> result;
    for (const TLayoutItem& item : layout.Items) {
        const auto found = paths.find(item.Node);
        result.push_back(found == paths.end() ? kNameless : found->second);
    }
    return result;
}

}  // namespace

void TExclusionPicture::ShowForm(const TfrmExclude& form) {
    form.UseCurrentForm([this](const std::shared_ptr<IOTAComponent>& root, const std::string& formFile) {
        const TFormParts parts(root, TFormParts::TFrames::Whole);
        Show(LayoutNodeOf(parts.Items()), {LookOf(formFile)});
        paths_ = PathsInPicture(Layout());
    });
    ShowMarks(form);
}

void TExclusionPicture::ShowMarks(const TfrmExclude& form) {
    marks_.clear();
    const auto components = form.Tree().ComponentsOf(form.CurrentForm());
    const int current = form.Tree().ComponentAbove(form.Current);
    for (std::size_t i = 0; i < paths_.size(); ++i) {
        const auto found = components.find(paths_[i]);
        const TLayoutItem& item = Layout().Items[i];
        if (found == components.end() || item.Item >= 0) continue;
        const QRect place = PlaceInPicture(item.Seen);
        if (!place.isEmpty())
            marks_.push_back({place, form.Tree().Node(found->second).Check(), found->second == current});
    }
    update();
}

QRect TExclusionPicture::CurrentPlace() const {
    for (const TMark& mark : marks_)
        if (mark.IsCurrent) return mark.Place;
    return {};
}

void TExclusionPicture::paintEvent(QPaintEvent* event) {
    TFormCanvas::paintEvent(event);
    QPainter painter(this);
    painter.setClipRect(event->rect());
    for (const TMark& mark : marks_)
        PaintMark(painter, mark);
}

/// What is marked differs in its pattern, not in its colour alone.
void TExclusionPicture::PaintMark(QPainter& painter, const TMark& mark) const {
    const bool isForm = mark.Place == rect();
    const bool isExcluded = mark.Check == TExclusionCheck::Excluded;
    QColor colour = isExcluded ? QColor(0xd0, 0x40, 0x30) : QColor(0x2e, 0x8b, 0x57);
    if (mark.Check == TExclusionCheck::Partly) colour = QColor(0xd0, 0x8a, 0x10);
    painter.setPen(QPen(colour, 1, isExcluded ? Qt::DashLine : Qt::SolidLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(mark.Place.adjusted(0, 0, -1, -1));
    // A form is marked by its frame: what stands on it has marks of its own.
    if (mark.Check != TExclusionCheck::Translated && !isForm) {
        colour.setAlpha(kHatchTint);
        painter.fillRect(mark.Place, QBrush(colour, isExcluded ? Qt::BDiagPattern : Qt::Dense6Pattern));
    }
    if (!mark.IsCurrent || isForm) return;
    QColor wash = palette().color(QPalette::Highlight);
    painter.setPen(QPen(wash, 2));
    painter.drawRect(mark.Place.adjusted(1, 1, -1, -1));
    wash.setAlpha(kWashTint);
    painter.fillRect(mark.Place, wash);
}

/// The last item at the place is the one in front.
void TExclusionPicture::mousePressEvent(QMouseEvent* event) {
    int hit = -1;
    for (std::size_t i = 0; i < paths_.size(); ++i)
        if (PlaceInPicture(Layout().Items[i].Seen).contains(event->pos()) && paths_[i] != kNameless)
            hit = static_cast<int>(i);
    if (hit >= 0 && OnClick) OnClick(paths_[static_cast<std::size_t>(hit)]);
}

}  // namespace tml

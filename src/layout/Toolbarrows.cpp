#include "layout/Toolbarrows.h"

#include <algorithm>
#include <tuple>

#include "base/Utf8.h"
#include "layout/Boxproperties.h"
#include "layout/Boxwishes.h"

namespace tml {
namespace {

constexpr int kSeparator = 8;
constexpr int kDivider = 5;
constexpr int kArrow = 12;       ///< beside a button that drops a menu
constexpr int kDropButton = 13;  ///< the same, as a button of its own
constexpr int kImage = 16;
constexpr int kTextRoom = 4;
constexpr int kToolButtonRoom = 4;
constexpr int kBesideText = 5;
constexpr int kAboveText = 2;
/// Aligned controls on one bar that the others keep clear of; there are hardly ever two.
constexpr std::size_t kMostObstacles = 50;

enum class TButtonStyle : std::uint8_t { Button, DropDown, ButtonDrop, Separator, Divider, Other };

TButtonStyle StyleOf(const TLayoutBox& box) {
    if (box.Kind() != TLayoutKind::ToolButton) return TButtonStyle::Other;
    const std::string style = NameIn(box.Node->Find("Style"));
    if (SameText(style, "tbsSeparator")) return TButtonStyle::Separator;
    if (SameText(style, "tbsDivider")) return TButtonStyle::Divider;
    if (SameText(style, "tbsDropDown")) return TButtonStyle::DropDown;
    if (SameText(style, "tbsButtonDrop")) return TButtonStyle::ButtonDrop;
    return TButtonStyle::Button;
}

/// A tool bar as its buttons see it; along is the axis of a row.
/// Of the images of a tool bar; empty where it has none.
TLayoutSize ImageOn(const TLayoutBoxes& boxes, const TLayoutBox& toolBar) {
    const std::string name = NameIn(toolBar.Node->Find("Images"));
    if (name.empty()) return {};
    const auto images = boxes.OnForm.find(UpperCase(name));
    if (images == boxes.OnForm.end()) return {kImage, kImage};
    return {LengthIn(images->second->Find("Width")).value_or(kImage),
            LengthIn(images->second->Find("Height")).value_or(kImage)};
}

class TToolBarRows {
  public:
    TToolBarRows(const TLayoutBoxes& boxes, int toolBar, bool isOneRow)
        : boxes_(boxes),
          bar_(boxes[toolBar]),
          along_(IsUpright() ? 1 : 0),
          across_(1 - along_),
          button_{LengthOf("ButtonWidth", 23), LengthOf("ButtonHeight", 22)},
          wraps_(FlagIn(bar_.Node->Find("Wrapable"), true)),
          showsCaptions_(FlagIn(bar_.Node->Find("ShowCaptions"), false)),
          isList_(FlagIn(bar_.Node->Find("List"), false)),
          image_(ImageOn(boxes, bar_)),
          end_(isOneRow ? kFarthest : bar_.Room(along_) - bar_.Inset[FarOf(along_)]) {
        Place();
    }

    /// By child, in the order of the rows.
    std::vector<std::pair<int, TLayoutExtents>> Places;
    TPerAxis<int> Needed = {0, 0};

  private:
    bool IsUpright() const {
        if (bar_.Align == TLayoutAlign::Left || bar_.Align == TLayoutAlign::Right) return true;
        const bool isFree = bar_.Align == TLayoutAlign::None || bar_.Align == TLayoutAlign::Client;
        return isFree && bar_.Now[0].Size < bar_.Now[1].Size;
    }
    int LengthOf(const char* property, int other) const {
        return std::max(1, LengthIn(bar_.Node->Find(property)).value_or(other));
    }
    TLayoutSize TextOf(const TLayoutBox& box) const {
        const bool showsOwn = !isList_ || FlagIn(box.Node->Find("ShowCaption"), true);
        if (!showsCaptions_ || !showsOwn) return {};
        if (box.Text.empty()) return {kTextRoom, kTextRoom};
        const TLayoutSize text = TextSize(boxes_.Texts, box.Text, box.Font, 0, true);
        return {text.Width + kTextRoom, text.Height + kTextRoom};
    }
    TLayoutSize ButtonSize(const TLayoutBox& box) const {
        const TLayoutSize text = TextOf(box);
        const TLayoutSize image = LengthIn(box.Find("ImageIndex")).value_or(-1) >= 0 ? image_ : TLayoutSize();
        const bool hasBoth = text.Width > 0 && image.Width > 0;
        TLayoutSize size{std::max(text.Width, image.Width), std::max(text.Height, image.Height)};
        if (hasBoth && isList_) size.Width = image.Width + kBesideText + text.Width;
        if (hasBoth && !isList_) size.Height = image.Height + kAboveText + text.Height;
        size.Width = std::max(size.Width + kToolButtonRoom, button_[0]);
        size.Height = std::max(size.Height + kToolButtonRoom, button_[1]);
        if (StyleOf(box) == TButtonStyle::DropDown) size.Width += kArrow;
        if (StyleOf(box) == TButtonStyle::ButtonDrop) size.Width += kDropButton;
        return size;
    }
    /// The length along the row; the other one is that of the bar's buttons.
    int LengthAlong(const TLayoutBox& box) const {
        const TButtonStyle style = StyleOf(box);
        if (style == TButtonStyle::Other) return box.OwnSize(along_);
        const bool isLine = style == TButtonStyle::Separator || style == TButtonStyle::Divider;
        if (isLine && boxes_.Options.Look == TLayoutLook::Vcl) return box.Now[along_].Size;
        if (style == TButtonStyle::Separator) return kSeparator;
        if (style == TButtonStyle::Divider) return kDivider;
        const TLayoutSize size = ButtonSize(box);
        return box.Limited(along_, std::max(button_[along_], along_ == 0 ? size.Width : size.Height));
    }

    std::vector<int> InOrder() {
        std::vector<int> order;
        for (const int child : bar_.Children) {
            if (!boxes_[child].Visible) continue;
            if (boxes_[child].Align == TLayoutAlign::None)
                order.push_back(child);
            else if (obstacles_.size() < kMostObstacles)
                obstacles_.push_back(child);
        }
        const auto rank = [&](int child) {
            const TLayoutExtents& now = boxes_[child].Design;
            const int row = (now[across_].Begin + button_[across_] / 2) / button_[across_];
            return std::tuple(row, now[along_].Begin, child);
        };
        std::sort(order.begin(), order.end(), [&](int one, int other) { return rank(one) < rank(other); });
        return order;
    }
    /// The far end of what stands in the way of the extents; their own begin when nothing does.
    int BehindObstacles(const TLayoutExtents& extents) const {
        int begin = extents[along_].Begin;
        for (const int child : obstacles_) {
            const TLayoutBox& other = boxes_[child];
            const bool isAside = other.Now[across_].Begin >= extents[across_].End() ||
                                 other.Now[across_].End() <= extents[across_].Begin;
            if (isAside || other.Now[along_].Begin >= begin + extents[along_].Size) continue;
            begin = std::max(begin, other.Now[along_].End());
        }
        return begin;
    }

    void Place() {
        const int start = bar_.Inset[along_];
        TPerAxis<int> pen;
        pen[along_] = start;
        pen[across_] = bar_.Inset[across_];
        for (const int child : InOrder()) {
            const TLayoutBox& box = boxes_[child];
            TLayoutExtents extents;
            extents[along_] = {pen[along_], LengthAlong(box)};
            extents[across_] = {pen[across_], AcrossOf(box)};
            extents[along_].Begin = BehindObstacles(extents);
            if (wraps_ && extents[along_].Begin > start && extents[along_].End() > end_) {
                pen[across_] = ClampedLength(pen[across_] + button_[across_]);
                extents[across_].Begin = pen[across_];
                extents[along_].Begin = start;
                extents[along_].Begin = BehindObstacles(extents);
            }
            Places.emplace_back(child, extents);
            pen[along_] = ClampedLength(extents[along_].End());
            for (std::size_t axis = 0; axis < kAxes; ++axis)
                Needed[axis] = std::max(Needed[axis], extents[axis].End() + bar_.Inset[FarOf(axis)]);
            if (!wraps_ && FlagIn(box.Node->Find("Wrap"), false)) {
                pen[along_] = start;
                pen[across_] = ClampedLength(pen[across_] + button_[across_]);
            }
        }
    }
    int AcrossOf(const TLayoutBox& box) const {
        const bool isOwn = box.AutoSize && box.Kind() != TLayoutKind::ToolButton;
        return isOwn ? box.OwnSize(across_) : box.Limited(across_, button_[across_]);
    }

    const TLayoutBoxes& boxes_;
    const TLayoutBox& bar_;
    std::size_t along_;
    std::size_t across_;
    TPerAxis<int> button_;
    bool wraps_;
    bool showsCaptions_;
    bool isList_;
    TLayoutSize image_;
    int end_;                     ///< of a row
    std::vector<int> obstacles_;  ///< the aligned children
};

}  // namespace

void PlaceToolBarRows(TLayoutBoxes& boxes, int toolBar) {
    for (const auto& [child, extents] : TToolBarRows(boxes, toolBar, false).Places)
        boxes[child].Now = extents;
}

TLayoutSize ToolBarWish(const TLayoutBoxes& boxes, int toolBar) {
    const TLayoutBox& bar = boxes[toolBar];
    const bool isGiven = bar.Keeps(kLeft) && bar.Keeps(kRight);
    const TToolBarRows rows(boxes, toolBar, !isGiven);
    return {rows.Needed[0], rows.Needed[1]};
}

void AddToolButtonDetails(const TLayoutBoxes& boxes, const TLayoutBox& button, TLayoutItem& item) {
    if (button.Parent < 0 || boxes[button.Parent].Kind() != TLayoutKind::ToolBar) return;
    const TLayoutBox& bar = boxes[button.Parent];
    const bool isList = FlagIn(bar.Node->Find("List"), false);
    const bool shows = FlagIn(bar.Node->Find("ShowCaptions"), false) &&
                       (!isList || FlagIn(button.Node->Find("ShowCaption"), true));
    if (!shows) item.Text.clear();
    if (LengthIn(button.Find("ImageIndex")).value_or(-1) >= 0) item.Glyph = ImageOn(boxes, bar);
    item.GlyphSide = isList ? TLayoutGlyphSide::Left : TLayoutGlyphSide::Top;
}

}  // namespace tml

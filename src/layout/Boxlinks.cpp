#include "layout/Boxlinks.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_map>

#include "base/Format.h"
#include "base/Utf8.h"

namespace tml {
namespace {

/// Hidden controls that are passed one after another; a chain of more has a circle, or nobody needs it.
constexpr int kMostHidden = 1000;

using TNames = std::unordered_map<std::string, int>;

/// The children of a box by name; of two with the same name the first.
TNames NamesOf(const TLayoutBoxes& boxes, const TLayoutBox& parent) {
    TNames names;
    for (const int child : parent.Children)
        if (boxes[child].Item < 0) names.emplace(UpperCase(boxes[child].Node->Name), child);
    return names;
}

/// "Owner" is the form or frame; a reference into a frame or to another form has dots; the last name is the
/// control's.
std::string_view LastName(std::string_view reference) {
    return reference.substr(reference.rfind('.') + 1);
}

bool IsAligned(const TLayoutBox& box) {
    return box.Align != TLayoutAlign::None && box.Align != TLayoutAlign::Custom;
}

/// A control that is centred keeps no other side of the axis; one that is centred by its far side is centred
/// by its near one.
void StraightenCenters(TLayoutBox& box) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        TBoxLink& near = box.Links[NearOf(axis)];
        TBoxLink& far = box.Links[FarOf(axis)];
        if (box.Anchored[FarOf(axis)] && far.Given && far.Point == TAnchorPoint::Center) {
            near = far;
            box.Anchored[NearOf(axis)] = true;
        }
        if (box.Anchored[NearOf(axis)] && near.Given && near.Point == TAnchorPoint::Center) {
            far = {};
            box.Anchored[FarOf(axis)] = false;
        }
    }
}

TBoxLink LinkOf(const TLayoutBoxes& boxes, const TNames& siblings, int index, std::size_t side) {
    const TLayoutBox& box = boxes[index];
    const std::string name = UpperCase(LastName(box.AnchorControl[side]));
    const auto found = siblings.find(name);
    if (found != siblings.end() && found->second != index)
        return {found->second, box.AnchorPoint[side], true};
    const bool isOwner = name == "OWNER" && (box.Parent == 0 || boxes[box.Parent].Node->IsFrame);
    const bool isParent = isOwner || name == UpperCase(boxes[box.Parent].Node->Name);
    return isParent ? TBoxLink{-1, box.AnchorPoint[side], true} : TBoxLink();
}

void ReadLinks(TLayoutBoxes& boxes, const TNames& siblings, int index) {
    TLayoutBox& box = boxes[index];
    for (std::size_t side = 0; side < kSides; ++side) {
        if (box.AnchorControl[side].empty() || !box.Anchored[side] || SidesOf(box.Align)[side]) continue;
        if (IsAligned(box) && box.AnchorPoint[side] == TAnchorPoint::Center) continue;
        box.Links[side] = LinkOf(boxes, siblings, index, side);
    }
    StraightenCenters(box);
}

/// The tie that a side has instead of one to a hidden control: that of the hidden one's side.
TBoxLink NextLink(const TLayoutBoxes& boxes, std::size_t side, const TBoxLink& link) {
    const TLayoutBox& hidden = boxes[link.Sibling];
    const bool toFar = link.Point == TAnchorPoint::Far;
    const std::size_t same = toFar ? FarOf(AxisOf(side)) : NearOf(AxisOf(side));
    for (const std::size_t one : {same, Opposite(same)})
        if (hidden.Anchored[one]) return hidden.Links[one];
    return {};
}

void PassHidden(const TLayoutBoxes& boxes, TLayoutBox& box) {
    for (std::size_t side = 0; side < kSides; ++side) {
        TBoxLink& link = box.Links[side];
        for (int steps = 0; link.Given && link.Sibling >= 0 && !boxes[link.Sibling].Visible; ++steps)
            link = steps < kMostHidden ? NextLink(boxes, side, link) : TBoxLink();
    }
}

/// Depth-first over the ties of one axis, by hand: a chain may be as long as the form.
class TLinkSorter {
  public:
    TLinkSorter(TLayoutBoxes& boxes, std::size_t axis)
        : boxes_(boxes), axis_(axis), state_(boxes.All.size()) {}

    void Add(int box, std::vector<int>& order) {
        if (state_[At(box)] != TState::New) return;
        Open(box);
        while (!open_.empty()) {
            TStep& step = open_.back();
            if (step.Next == kAxes) {
                state_[At(step.Box)] = TState::Done;
                order.push_back(step.Box);
                open_.pop_back();
            } else {
                Follow(step.Box, step.Next++ == 0 ? NearOf(axis_) : FarOf(axis_));
            }
        }
    }

  private:
    enum class TState : std::uint8_t { New, Open, Done };
    struct TStep {
        int Box;
        std::size_t Next;
    };

    static std::size_t At(int box) { return static_cast<std::size_t>(box); }
    void Open(int box) {
        state_[At(box)] = TState::Open;
        open_.push_back({box, 0});
    }
    void Follow(int box, std::size_t side) {
        TBoxLink& link = boxes_[box].Links[side];
        if (!link.Given || link.Sibling < 0) return;
        if (state_[At(link.Sibling)] == TState::New) {
            Open(link.Sibling);
        } else if (state_[At(link.Sibling)] == TState::Open) {
            boxes_.Notes.push_back(Format("Circle of anchors at %s", boxes_[box].Node->Name));
            link = {};
        }
    }

    TLayoutBoxes& boxes_;
    std::size_t axis_;
    std::vector<TState> state_;
    std::vector<TStep> open_;
};

/// How far inside the form has put an aligned control: the outermost is placed first.
int Inwards(const TLayoutBox& box) {
    switch (box.Align) {
        case TLayoutAlign::Top:
            return box.Design[1].Begin;
        case TLayoutAlign::Left:
            return box.Design[0].Begin;
        case TLayoutAlign::Bottom:
            return -box.Design[1].End();
        case TLayoutAlign::Right:
            return -box.Design[0].End();
        default:
            return 0;
    }
}

/// Of two at the same place the later one in the form stands outside.
std::vector<int> OutermostFirst(const TLayoutBoxes& boxes, std::vector<int> children) {
    std::reverse(children.begin(), children.end());
    std::stable_sort(children.begin(), children.end(),
                     [&](int one, int other) { return Inwards(boxes[one]) < Inwards(boxes[other]); });
    return children;
}

/// Ties the aligned sides of a child to the parent or to the outer aligned sibling there.
void LinkAligned(TLayoutBoxes& boxes, TChildOrders& orders) {
    TPerSide<int> outer = {-1, -1, -1, -1};
    for (const TLayoutAlign align : {TLayoutAlign::Top, TLayoutAlign::Bottom, TLayoutAlign::Left,
                                     TLayoutAlign::Right, TLayoutAlign::Client}) {
        for (const int child : orders.Aligned[static_cast<std::size_t>(align)]) {
            for (std::size_t side = 0; side < kSides; ++side) {
                if (!SidesOf(align)[side]) continue;
                const bool toFar = IsFar(side) == (outer[side] < 0);
                boxes[child].Links[side] = {outer[side], toFar ? TAnchorPoint::Far : TAnchorPoint::Near,
                                            true};
            }
            switch (align) {
                case TLayoutAlign::Top:
                    outer[kTop] = child;
                    break;
                case TLayoutAlign::Bottom:
                    outer[kBottom] = child;
                    break;
                case TLayoutAlign::Left:
                    outer[kLeft] = child;
                    break;
                case TLayoutAlign::Right:
                    outer[kRight] = child;
                    break;
                default:
                    break;
            }
        }
    }
}

TChildOrders SortAligned(const TLayoutBoxes& boxes, const TLayoutBox& parent) {
    TChildOrders orders;
    for (const int child : parent.Children)
        if (boxes[child].Visible)
            orders.Aligned[static_cast<std::size_t>(boxes[child].Align)].push_back(child);
    for (std::vector<int>& one : orders.Aligned)
        one = OutermostFirst(boxes, std::move(one));
    return orders;
}

void SortLinked(const TLayoutBoxes& boxes, const TLayoutBox& parent, TLinkSorter& sorter, std::size_t axis,
                TChildOrders& orders) {
    for (const int child : parent.Children)
        if (boxes[child].Visible) sorter.Add(child, orders.Measured[axis]);
    std::copy_if(orders.Measured[axis].begin(), orders.Measured[axis].end(),
                 std::back_inserter(orders.Placed[axis]),
                 [&](int child) { return !IsAligned(boxes[child]); });
}

}  // namespace

std::vector<TChildOrders> LinkBoxes(TLayoutBoxes& boxes) {
    TPerAxis<TLinkSorter> sorters = {TLinkSorter(boxes, 0), TLinkSorter(boxes, 1)};
    std::vector<TChildOrders> all;
    all.reserve(boxes.All.size());
    for (const TLayoutBox& parent : boxes.All) {
        const TNames siblings = NamesOf(boxes, parent);
        for (const int child : parent.Children)
            ReadLinks(boxes, siblings, child);
        for (const int child : parent.Children)
            PassHidden(boxes, boxes[child]);
        TChildOrders orders = SortAligned(boxes, parent);
        LinkAligned(boxes, orders);
        for (std::size_t axis = 0; axis < kAxes; ++axis)
            SortLinked(boxes, parent, sorters[axis], axis, orders);
        all.push_back(std::move(orders));
    }
    return all;
}

}  // namespace tml

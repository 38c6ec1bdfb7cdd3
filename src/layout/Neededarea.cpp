#include "layout/Neededarea.h"

#include <algorithm>
#include <unordered_map>

#include "layout/Childtable.h"

namespace tml {
namespace {

/// Distances of a side to the near and to the far edge of the client area, where they can be reckoned without
/// knowing how big that is.
struct TReach {
    TPerAxis<std::optional<int>> To;  ///< here 0 is the near edge, 1 the far one
};

/// Reckons one axis of the children of a parent.
class TReachReckoner {
  public:
    TReachReckoner(const TLayoutBoxes& boxes, int parent, std::size_t axis, const TChildOrders& orders)
        : boxes_(boxes), parent_(boxes[parent]), axis_(axis), near_(NearOf(axis)), far_(FarOf(axis)) {
        if (parent_.Spread.Order != TChildOrder::None) table_ = TableExtents(boxes, parent, axis);
        for (const int child : orders.Measured[axis])
            Reckon(child);
    }

    int Needed() const { return needed_; }

  private:
    struct TChild {
        TPerAxis<TReach> Side;  ///< 0 the near side, 1 the far one
        int Wanted = 0;
    };
    static std::size_t At(bool isFar) { return isFar ? 1 : 0; }

    void Reckon(int child) {
        TChild& reached = children_[child];
        reached.Wanted = WantedSize(boxes_, child, axis_);
        const TLayoutBox& box = boxes_[child];
        Fix(child, box, reached);
        for (const bool toFar : {false, true}) {
            std::optional<int>& outer = reached.Side[At(toFar)].To[At(toFar)];
            if (!outer) outer = Outwards(box, toFar);
            reached.Side[At(!toFar)].To[At(toFar)] = Inwards(box, reached, toFar);
        }
        for (const TReach& side : reached.Side)
            if (side.To[0] && side.To[1])
                needed_ = std::max(needed_, ClampedLength(*side.To[0] + *side.To[1]));
    }

    /// A child that stands where the form, or the table of its siblings, puts it.
    void Fix(int child, const TLayoutBox& box, TChild& reached) {
        const auto cell = table_.find(child);
        if (cell != table_.end()) {
            reached.Side[0].To[0] = cell->second.Begin;
            reached.Wanted = cell->second.Size;
        } else if ((parent_.Spread.Order == TChildOrder::None && box.CountsAsFree(axis_)) ||
                   box.Align == TLayoutAlign::Custom) {
            reached.Side[0].To[0] = box.Now[axis_].Begin;
        }
    }

    int EdgeSpace(const TLayoutBox& box, std::size_t side) const {
        return ClampedLength(std::max(parent_.Spread.Edge[axis_], box.Space[side]) + parent_.Inset[side]);
    }
    bool IsBeside(const TBoxLink& link, bool isFar) const {
        return link.Point == (isFar ? TAnchorPoint::Near : TAnchorPoint::Far);
    }
    int Space(const TLayoutBox& box, std::size_t side) const {
        const TBoxLink& link = box.Links[side];
        if (!link.Given || link.Sibling < 0) return EdgeSpace(box, side);
        if (!IsBeside(link, IsFar(side))) return link.Point == TAnchorPoint::Center ? 0 : box.Space[side];
        return std::max(
            {box.Space[side], boxes_[link.Sibling].Space[Opposite(side)], parent_.Spread.Between[axis_]});
    }
    static bool ToSibling(const TBoxLink& link) { return link.Given && link.Sibling >= 0; }
    /// Tied to the parent's own edge on that side, or to nothing.
    static bool ToOwnEdge(const TBoxLink& link, bool isFar) {
        return !link.Given || link.Point == (isFar ? TAnchorPoint::Far : TAnchorPoint::Near);
    }

    /// The distance of a sibling's point to an edge.
    std::optional<int> SiblingReach(const TBoxLink& link, bool toFar) const {
        const auto found = children_.find(link.Sibling);
        if (found == children_.end()) return std::nullopt;
        const TChild& sibling = found->second;
        const std::optional<int>& near = sibling.Side[0].To[At(toFar)];
        const std::optional<int>& far = sibling.Side[1].To[At(toFar)];
        if (link.Point == TAnchorPoint::Near) return near;
        if (link.Point == TAnchorPoint::Far) return far;
        if (near && far) return (*near + *far) / 2;
        if (near) return *near + (toFar ? -1 : 1) * (sibling.Wanted / 2);
        if (far) return *far + (toFar ? 1 : -1) * (sibling.Wanted / 2);
        return std::nullopt;
    }

    /// Of a side to its own edge.
    std::optional<int> Outwards(const TLayoutBox& box, bool isFar) const {
        const std::size_t side = isFar ? far_ : near_;
        const TBoxLink& link = box.Links[side];
        if (!box.Keeps(side)) return EdgeSpace(box, side);
        if (!ToSibling(link)) {
            if (!ToOwnEdge(link, isFar)) return std::nullopt;
            return Space(box, side);
        }
        const std::optional<int> reach = SiblingReach(link, isFar);
        if (!reach) return std::nullopt;
        if (link.Point == TAnchorPoint::Center) return ClampedLength(*reach - WantedOf(box) / 2);
        return ClampedLength(*reach + Space(box, side));
    }

    int WantedOf(const TLayoutBox& box) const {
        const auto index = static_cast<int>(&box - boxes_.All.data());
        return children_.at(index).Wanted;
    }

    /// Of a side to the edge on the other side, where toFar names the edge. The outer distances are known.
    std::optional<int> Inwards(const TLayoutBox& box, const TChild& child, bool toFar) const {
        const std::size_t side = toFar ? near_ : far_;
        const std::size_t other = toFar ? far_ : near_;
        const TBoxLink& link = box.Links[side];
        const std::optional<int>& outer = child.Side[At(toFar)].To[At(toFar)];
        if (!box.Keeps(side))
            return box.Keeps(other) && outer ? std::optional(ClampedLength(*outer + child.Wanted))
                                             : std::nullopt;
        if (!ToSibling(link)) return FromEdge(box, child, toFar);
        std::optional<int> reach = SiblingReach(link, toFar);
        if (!reach) return std::nullopt;
        if (link.Point == TAnchorPoint::Center)
            return std::max(ClampedLength(*reach - child.Wanted / 2), child.Wanted);
        reach = ClampedLength(*reach - Space(box, side));
        if (!box.Keeps(other) || !outer) return reach;
        const bool isBeside = IsBeside(box.Links[other], toFar);
        return std::max(*reach, ClampedLength(*outer + (isBeside ? child.Wanted : 0)));
    }

    std::optional<int> FromEdge(const TLayoutBox& box, const TChild& child, bool toFar) const {
        const std::size_t other = toFar ? far_ : near_;
        if (!ToOwnEdge(box.Links[toFar ? near_ : far_], !toFar)) return std::nullopt;
        if (!box.Keeps(other)) return ClampedLength(EdgeSpace(box, other) + child.Wanted);
        const std::optional<int>& outer = child.Side[At(toFar)].To[At(toFar)];
        if (!outer) return std::nullopt;
        const TBoxLink& link = box.Links[other];
        const bool addSize = !ToSibling(link) || IsBeside(link, toFar);
        return ClampedLength(*outer + (addSize ? child.Wanted : 0));
    }

    const TLayoutBoxes& boxes_;
    const TLayoutBox& parent_;
    std::size_t axis_;
    std::size_t near_;
    std::size_t far_;
    std::unordered_map<int, TChild> children_;
    std::unordered_map<int, TLayoutExtent> table_;
    int needed_ = 0;
};

}  // namespace

int NeededRoom(const TLayoutBoxes& boxes, int parent, std::size_t axis, const TChildOrders& orders) {
    return TReachReckoner(boxes, parent, axis, orders).Needed();
}

int WantedSize(const TLayoutBoxes& boxes, int child, std::size_t axis) {
    const TLayoutBox& box = boxes[child];
    const bool isStretched = box.Keeps(NearOf(axis)) && box.Keeps(FarOf(axis));
    int size = box.Now[axis].Size;
    if (box.AutoSize || isStretched) {
        const int ofClass = axis == 0 ? box.Class->Size.Width : box.Class->Size.Height;
        size =
            box.Wish[axis] > 0 ? box.Wish[axis] : std::max(1, isStretched ? ofClass : box.Design[axis].Size);
        if (box.Wish[axis] == 0 && box.Kind() == TLayoutKind::Panel) size = 0;
    }
    return box.Limited(axis, size);
}

int SparedRoom(const TLayoutBoxes& boxes, int parent, std::size_t axis) {
    const TLayoutBox& box = boxes[parent];
    std::optional<int> spared;
    for (const int index : box.Children) {
        const TLayoutBox& child = boxes[index];
        if (!child.Visible || !child.CountsAsFree(axis)) continue;
        const int space =
            std::max(child.Space[NearOf(axis)], box.Spread.Edge[axis]) + box.Inset[NearOf(axis)];
        const int own = child.Now[axis].Begin - space;
        spared = spared ? std::min(*spared, own) : own;
    }
    return spared.value_or(0);
}

}  // namespace tml

#include "layout/Boxplacement.h"

#include <algorithm>

#include "layout/Childtable.h"
#include "layout/Toolbarrows.h"

namespace tml {
namespace {

/// What is left of a client area, and the space that it keeps around itself.
struct TRest {
    TPerSide<int> Edge;  ///< places of its sides
    TPerSide<int> Space = {0, 0, 0, 0};

    /// Keeps at least this much space at a side.
    void Widen(std::size_t side, int space) {
        if (space <= Space[side]) return;
        Edge[side] += IsFar(side) ? Space[side] - space : space - Space[side];
        Space[side] = space;
    }
    /// One that has become smaller than nothing is nothing, in the middle.
    void Close() {
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            int& near = Edge[NearOf(axis)];
            int& far = Edge[FarOf(axis)];
            if (far < near) near = far = (near + far) / 2;
        }
    }
};

TRest WholeOf(const TLayoutBox& parent) {
    TRest rest;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        rest.Edge[NearOf(axis)] = parent.Inset[NearOf(axis)];
        rest.Edge[FarOf(axis)] = parent.Room(axis) - parent.Inset[FarOf(axis)];
    }
    return rest;
}

/// Where the side of a child is that it ties to another control; size is the child's.
class TLinkedPlaces {
  public:
    TLinkedPlaces(const TLayoutBoxes& boxes, int parent)
        : boxes_(boxes), parent_(boxes[parent]), whole_(WholeOf(parent_)) {}

    int PlaceOf(const TLayoutBox& child, std::size_t side, int size) const {
        const TBoxLink& link = child.Links[side];
        const TLayoutExtent target = Target(link, AxisOf(side));
        if (link.Point == TAnchorPoint::Center) return Centered(target, side, size);
        const int space = SpaceOf(child, side);
        const int point = link.Point == TAnchorPoint::Far ? target.End() : target.Begin;
        return ClampedLength(IsFar(side) ? point - space : point + space);
    }

  private:
    TLayoutExtent Target(const TBoxLink& link, std::size_t axis) const {
        if (link.Sibling >= 0) return boxes_[link.Sibling].Now[axis];
        if (link.Point == TAnchorPoint::Center && axis == 1) return {0, parent_.Room(axis)};
        const int near = whole_.Edge[NearOf(axis)];
        return {near, whole_.Edge[FarOf(axis)] - near};
    }
    static int Centered(const TLayoutExtent& target, std::size_t side, int size) {
        const int center = target.Begin + target.Size / 2;
        return ClampedLength(IsFar(side) ? center + size / 2 : center - size / 2);
    }
    int SpaceOf(const TLayoutBox& child, std::size_t side) const {
        const TBoxLink& link = child.Links[side];
        const std::size_t axis = AxisOf(side);
        if (link.Sibling < 0) return std::max(child.Space[side], parent_.Spread.Edge[axis]);
        const bool isBeside = IsFar(side) == (link.Point == TAnchorPoint::Near);
        if (!isBeside) return child.Space[side];
        return std::max(
            {child.Space[side], boxes_[link.Sibling].Space[Opposite(side)], parent_.Spread.Between[axis]});
    }

    const TLayoutBoxes& boxes_;
    const TLayoutBox& parent_;
    TRest whole_;
};

int Proportional(int length, int to, int from) {
    if (from <= 0) return length;
    const std::int64_t product = std::int64_t{length} * to * 2;
    return ClampedLength((product + (product < 0 ? -from : from)) / (2 * std::int64_t{from}));
}

/// Where anchors put the child on one axis.
TLayoutExtent AnchoredExtent(const TLayoutBoxes& boxes, const TLinkedPlaces& places, const TLayoutBox& child,
                             std::size_t axis) {
    const std::size_t near = NearOf(axis);
    const std::size_t far = FarOf(axis);
    const int room = boxes[child.Parent].Room(axis);
    const TLayoutExtent& design = child.Design[axis];
    const auto isLinked = [&](std::size_t side) {
        return child.Anchored[side] && !SidesOf(child.Align)[side] && child.Links[side].Given;
    };
    TLayoutExtent extent{design.Begin, child.OwnSize(axis)};
    if (child.Keeps(near) && isLinked(near)) extent.Begin = places.PlaceOf(child, near, extent.Size);
    if (child.Keeps(far)) {
        const int kept = room - (child.DesignRoom[axis] - design.End());
        const int end = ClampedLength(isLinked(far) ? places.PlaceOf(child, far, extent.Size) : kept);
        if (child.Keeps(near))
            extent.Size = std::max(0, child.Limited(axis, end - extent.Begin));
        else
            extent.Begin = end - extent.Size;
    } else if (!child.Keeps(near)) {
        const int center = design.Begin + design.Size / 2;
        extent.Begin = Proportional(center, room, child.DesignRoom[axis]) - extent.Size / 2;
    }
    return extent;
}

/// The share of an aligned child in what is left, on one axis.
TLayoutExtent AlignedExtent(const TLayoutBox& child, TLayoutExtent extent, std::size_t axis,
                            const TRest& rest) {
    const int near = rest.Edge[NearOf(axis)];
    const int far = rest.Edge[FarOf(axis)];
    const TPerSide<bool>& kept = SidesOf(child.Align);
    if (kept[NearOf(axis)] && kept[FarOf(axis)]) return {near, std::max(0, child.Limited(axis, far - near))};
    if (kept[NearOf(axis)]) return {near, extent.Size};
    if (child.Anchored[NearOf(axis)]) extent.Size = std::max(0, child.Limited(axis, far - extent.Begin));
    return {far - extent.Size, extent.Size};
}

bool AnchorsAreOfAlign(const TLayoutBox& child) {
    for (std::size_t side = 0; side < kSides; ++side)
        if (child.Anchored[side] && !SidesOf(child.Align)[side]) return false;
    return true;
}

/// The side of the rest that an aligned child takes room from, kSides for none.
std::size_t SideTaken(TLayoutAlign align) {
    switch (align) {
        case TLayoutAlign::Top:
            return kTop;
        case TLayoutAlign::Bottom:
            return kBottom;
        case TLayoutAlign::Left:
            return kLeft;
        case TLayoutAlign::Right:
            return kRight;
        default:
            return kSides;
    }
}

void TakeFrom(TRest& rest, const TLayoutBox& parent, const TLayoutBox& child) {
    const std::size_t side = SideTaken(child.Align);
    if (side == kSides) return;
    const std::size_t axis = AxisOf(side);
    const TLayoutExtent& taken = child.Now[axis];
    rest.Edge[side] = IsFar(side) ? std::max(taken.Begin, rest.Edge[Opposite(side)])
                                  : std::min(taken.End(), rest.Edge[Opposite(side)]);
    rest.Space[side] = 0;
    rest.Widen(side, std::max(parent.Spread.Between[axis], child.Space[Opposite(side)]));
    rest.Close();
}

void PlaceAligned(TLayoutBoxes& boxes, const TLinkedPlaces& places, TLayoutBox& child, TRest& rest) {
    TRest around = rest;
    for (std::size_t side = 0; side < kSides; ++side)
        around.Widen(side, child.Space[side]);
    around.Close();
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        TLayoutExtent extent{child.Now[axis].Begin, child.OwnSize(axis)};
        if (!AnchorsAreOfAlign(child)) extent = AnchoredExtent(boxes, places, child, axis);
        child.Now[axis] = AlignedExtent(child, extent, axis, around);
    }
    TakeFrom(rest, boxes[child.Parent], child);
}

void PlaceAllAligned(TLayoutBoxes& boxes, int parent, const TLinkedPlaces& places,
                     const TChildOrders& orders) {
    TRest rest = WholeOf(boxes[parent]);
    for (std::size_t side = 0; side < kSides; ++side)
        rest.Widen(side, boxes[parent].Spread.Edge[AxisOf(side)]);
    rest.Close();
    for (const TLayoutAlign align : {TLayoutAlign::Top, TLayoutAlign::Bottom, TLayoutAlign::Left,
                                     TLayoutAlign::Right, TLayoutAlign::Client})
        for (const int child : orders.Aligned[static_cast<std::size_t>(align)])
            PlaceAligned(boxes, places, boxes[child], rest);
}

void PlaceAnchored(TLayoutBoxes& boxes, int parent, const TLinkedPlaces& places, const TChildOrders& orders) {
    const bool isSpread = boxes[parent].Spread.Order != TChildOrder::None;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        for (const int child : orders.Placed[axis]) {
            TLayoutBox& box = boxes[child];
            if (isSpread && box.IsFree()) continue;
            box.Now[axis] = AnchoredExtent(boxes, places, box, axis);
        }
    }
}

}  // namespace

// What is spread is placed first where others keep to it.
void PlaceChildren(TLayoutBoxes& boxes, int parent, const TChildOrders& orders) {
    const TLinkedPlaces places(boxes, parent);
    PlaceAllAligned(boxes, parent, places, orders);
    if (boxes[parent].Kind() == TLayoutKind::ToolBar) {
        PlaceToolBarRows(boxes, parent);
        return;
    }
    if (boxes[parent].Spread.Order != TChildOrder::None) SpreadChildren(boxes, parent);
    PlaceAnchored(boxes, parent, places, orders);
}

}  // namespace tml

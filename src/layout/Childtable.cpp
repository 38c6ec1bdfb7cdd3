#include "layout/Childtable.h"

#include <algorithm>
#include <cmath>

namespace tml {
namespace {

/// A row or a column, or a cell of one, on one axis.
struct TLine {
    int Begin = 0;
    int Size = 0;
    int Least = 0;
    int Before = 0;
    int After = 0;
};

struct TTableCell {
    int Child = -1;
    std::size_t Line = 0;  ///< of the axis: the column across, the row down
    TLine Own;
};

struct TChildTable {
    std::vector<TTableCell> Cells;
    std::vector<TLine> Lines;
};

std::vector<int> FreeChildren(const TLayoutBoxes& boxes, int parent) {
    std::vector<int> children;
    for (const int child : boxes[parent].Children)
        if (boxes[child].Visible && boxes[child].IsFree()) children.push_back(child);
    return children;
}

TLine OwnLine(const TLayoutBoxes& boxes, int child, std::size_t axis) {
    const TLayoutBox& box = boxes[child];
    TLine line;
    line.Least = box.Least[axis];
    line.Before = box.Space[NearOf(axis)];
    line.After = box.Space[FarOf(axis)];
    const int ofClass = axis == 0 ? box.Class->Size.Width : box.Class->Size.Height;
    const bool hasWish = box.Wish[axis] > 0 || (box.Wish[axis] == 0 && box.Kind() == TLayoutKind::Panel);
    line.Size = box.Limited(axis, hasWish ? box.Wish[axis] : ofClass);
    return line;
}

void AddSpread(TLine& line, const TChildSizing& spread, std::size_t axis, bool isFirst, bool isLast) {
    line.Before = std::max(line.Before, isFirst ? spread.Edge[axis] : spread.Between[axis]);
    line.After = std::max(line.After, isLast ? spread.Edge[axis] : spread.Between[axis]);
}

void Join(TLine& line, const TLine& cell) {
    line.Least = std::max(line.Least, cell.Least);
    line.Size = std::max(line.Size, cell.Size);
    line.Before = std::max(line.Before, cell.Before);
    line.After = std::max(line.After, cell.After);
}

TChildTable MakeTable(const TLayoutBoxes& boxes, int parent, std::size_t axis) {
    const TChildSizing& spread = boxes[parent].Spread;
    const std::vector<int> children = FreeChildren(boxes, parent);
    TChildTable table;
    if (children.empty()) return table;
    const auto perLine =
        static_cast<std::size_t>(std::clamp(spread.PerLine, 1, static_cast<int>(children.size())));
    const std::size_t others = (children.size() - 1) / perLine + 1;
    const bool isWithin = (spread.Order == TChildOrder::Rows) == (axis == 0);
    table.Lines.resize(isWithin ? perLine : others);
    const bool isMirrored = axis == 0 && *boxes[parent].RightToLeft;
    for (std::size_t i = 0; i < children.size(); ++i) {
        TTableCell cell{children[i], isWithin ? i % perLine : i / perLine, OwnLine(boxes, children[i], axis)};
        if (isMirrored) cell.Line = table.Lines.size() - 1 - cell.Line;
        AddSpread(cell.Own, spread, axis, cell.Line == 0, cell.Line + 1 == table.Lines.size());
        Join(table.Lines[cell.Line], cell.Own);
        table.Cells.push_back(cell);
    }
    return table;
}

std::int64_t TotalOf(std::vector<TLine>& lines) {
    std::int64_t total = lines.empty() ? 0 : lines.front().Before;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        lines[i].Size = std::max(1, lines[i].Size);
        const int next = i + 1 < lines.size() ? lines[i + 1].Before : 0;
        total += lines[i].Size + std::max(lines[i].After, next);
    }
    return total;
}

bool CanShrink(const TLine& line) {
    return line.Size > std::max(1, line.Least);
}

/// Spreads a difference over the spaces around and between the lines, those that come first more.
void ResizeSpaces(std::vector<TLine>& lines, int difference) {
    const int count = static_cast<int>(lines.size()) + 1;
    const int share = difference / count + (difference % count > 0 ? 1 : difference % count < 0 ? -1 : 0);
    const auto take = [&] {
        const int part = difference > 0 ? std::min(share, difference) : std::max(share, difference);
        difference -= part;
        return part;
    };
    lines.front().Before = std::max(0, lines.front().Before + take());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const int next = i + 1 < lines.size() ? lines[i + 1].Before : 0;
        lines[i].After = std::max(0, std::max(lines[i].After, next) + take());
        if (i + 1 < lines.size()) lines[i + 1].Before = lines[i].After;
    }
}

/// A difference that lines share: what is left of it, all of it, and the number of lines.
struct TShared {
    std::int64_t Rest;
    std::int64_t All;
    std::int64_t Count;
};

/// What a line gives or takes; the first ones take the broken pixels.
std::int64_t ShareOf(const TLine& line, TChildResize resize, const TShared& shared, double scale) {
    const int sign = shared.Rest > 0 ? 1 : -1;
    const std::int64_t share = resize == TChildResize::Scale
                                   ? std::llround(line.Size * scale) - line.Size
                                   : (shared.All + sign * (shared.Count - 1)) / shared.Count;
    return sign > 0 ? std::clamp<std::int64_t>(share, 1, shared.Rest)
                    : std::clamp<std::int64_t>(share, shared.Rest, -1);
}

/// Changes the lines until they fill the target or none can change any more: equally, or each by its size.
/// A round that stops at limits is followed by another, of which there are no more than lines.
void ResizeLines(std::vector<TLine>& lines, TChildResize resize, int target) {
    for (std::size_t round = 0; round <= lines.size(); ++round) {
        const std::int64_t total = TotalOf(lines);
        std::int64_t rest = target - total;
        const auto can = [&](const TLine& line) { return rest > 0 || CanShrink(line); };
        const auto count = std::count_if(lines.begin(), lines.end(), can);
        if (rest == 0 || count == 0) return;
        const double scale = static_cast<double>(target) / static_cast<double>(total);
        const std::int64_t all = rest;
        for (TLine& line : lines) {
            if (rest == 0 || !can(line)) continue;
            const int least = rest > 0 ? 1 : std::max(1, line.Least);
            const std::int64_t size = line.Size + ShareOf(line, resize, {rest, all, count}, scale);
            rest += line.Size;
            line.Size = std::max(least, ClampedLength(size));
            rest -= line.Size;
        }
    }
}

void Resize(std::vector<TLine>& lines, const TChildSizing& spread, std::size_t axis, int target) {
    if (lines.empty()) return;
    const auto difference = ClampedLength(target - TotalOf(lines));
    const TChildResize resize = difference > 0 ? spread.Enlarge[axis] : spread.Shrink[axis];
    if (difference == 0 || resize == TChildResize::None) return;
    if (resize == TChildResize::Space)
        ResizeSpaces(lines, difference);
    else
        ResizeLines(lines, resize, target);
}

void PlaceLines(std::vector<TLine>& lines) {
    int place = lines.empty() ? 0 : lines.front().Before;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        lines[i].Begin = place;
        const int next = i + 1 < lines.size() ? lines[i + 1].Before : 0;
        place = ClampedLength(std::int64_t{place} + lines[i].Size + std::max(lines[i].After, next));
    }
}

/// What sizes itself keeps its size in the middle of a cell that is too small for it.
TLayoutExtent PlaceInCell(const TLine& line, int size, TCellAlign align, bool shrinks) {
    if (align == TCellAlign::Center) return {line.Begin + (line.Size - size) / 2, size};
    if (size > line.Size) return {line.Begin, shrinks ? line.Size : size};
    switch (align) {
        case TCellAlign::Fill:
            return {line.Begin, line.Size};
        case TCellAlign::Far:
            return {line.Begin + line.Size - size, size};
        default:
            return {line.Begin, size};
    }
}

/// Of a child in a parent that is read from right to left, near and far are the other way round.
TCellAlign CellAlignOf(const TLayoutBoxes& boxes, const TLayoutBox& child, std::size_t axis) {
    const TCellAlign align = child.Cell[axis];
    if (axis != 0 || !*boxes[child.Parent].RightToLeft) return align;
    if (align == TCellAlign::Near) return TCellAlign::Far;
    return align == TCellAlign::Far ? TCellAlign::Near : align;
}

bool Shrinks(const TChildSizing& spread, std::size_t axis) {
    return spread.Shrink[axis] == TChildResize::Scale || spread.Shrink[axis] == TChildResize::Equal;
}

}  // namespace

void SpreadChildren(TLayoutBoxes& boxes, int parent) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        TChildTable table = MakeTable(boxes, parent, axis);
        Resize(table.Lines, boxes[parent].Spread, axis, boxes[parent].Room(axis));
        PlaceLines(table.Lines);
        for (const TTableCell& cell : table.Cells) {
            TLayoutBox& child = boxes[cell.Child];
            child.Now[axis] =
                PlaceInCell(table.Lines[cell.Line], cell.Own.Size, CellAlignOf(boxes, child, axis),
                            Shrinks(boxes[parent].Spread, axis));
            child.Now[axis].Size = child.Limited(axis, child.Now[axis].Size);
        }
    }
}

std::unordered_map<int, TLayoutExtent> TableExtents(const TLayoutBoxes& boxes, int parent, std::size_t axis) {
    TChildTable table = MakeTable(boxes, parent, axis);
    PlaceLines(table.Lines);
    std::unordered_map<int, TLayoutExtent> extents;
    for (const TTableCell& cell : table.Cells)
        extents[cell.Child] = PlaceInCell(table.Lines[cell.Line], cell.Own.Size,
                                          CellAlignOf(boxes, boxes[cell.Child], axis), false);
    return extents;
}

}  // namespace tml

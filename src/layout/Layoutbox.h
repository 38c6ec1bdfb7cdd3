#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "layout/Formlayout.h"
#include "layout/Layoutclasses.h"

namespace tml {

/// The workings of the layout: what holds across and down is written once, for an axis (0 across, 1 down).
/// The sides are numbered so that side % 2 is the axis and side / 2 tells near (left, top) from far.
enum TLayoutSide : std::uint8_t { kLeft, kTop, kRight, kBottom };
constexpr std::size_t kSides = 4;
constexpr std::size_t kAxes = 2;

constexpr std::size_t AxisOf(std::size_t side) {
    return side % 2;
}
constexpr bool IsFar(std::size_t side) {
    return side >= 2;
}
constexpr std::size_t Opposite(std::size_t side) {
    return (side + 2) % 4;
}
constexpr std::size_t NearOf(std::size_t axis) {
    return axis;
}
constexpr std::size_t FarOf(std::size_t axis) {
    return axis + 2;
}

template <typename T>
using TPerSide = std::array<T, kSides>;
template <typename T>
using TPerAxis = std::array<T, kAxes>;

/// Farther out nothing stands; sums of such lengths stay in range.
constexpr int kFarthest = 100'000;
int ClampedLength(std::int64_t length);

struct TLayoutExtent {
    int Begin = 0;
    int Size = 0;

    int End() const { return Begin + Size; }
    bool operator==(const TLayoutExtent&) const = default;
};

using TLayoutExtents = TPerAxis<TLayoutExtent>;

/// Which point of another control a side is tied to.
enum class TAnchorPoint : std::uint8_t { Near, Far, Center };

/// What a side keeps to: a sibling, or the parent.
struct TBoxLink {
    int Sibling = -1;  ///< -1 for the parent
    TAnchorPoint Point = TAnchorPoint::Near;
    bool Given = false;  ///< by the form; else the side keeps its distance from the design
};

enum class TChildOrder : std::uint8_t { None, Rows, Columns };
enum class TChildResize : std::uint8_t { None, Scale, Equal, Space };
enum class TCellAlign : std::uint8_t { Fill, Near, Far, Center };

/// How a parent spreads those children that say nothing of their own.
struct TChildSizing {
    TPerAxis<int> Edge = {0, 0};
    TPerAxis<int> Between = {0, 0};
    TChildOrder Order = TChildOrder::None;
    int PerLine = 0;
    TPerAxis<TChildResize> Enlarge = {TChildResize::None, TChildResize::None};
    TPerAxis<TChildResize> Shrink = {TChildResize::None, TChildResize::None};
};

/// A control while it is laid out.
struct TLayoutBox {
    const TLayoutNode* Node = nullptr;
    const TLayoutNode* Action = nullptr;  ///< gives what the control does not say by itself
    const TLayoutClass* Class = nullptr;
    int Parent = -1;
    int Item = -1;  ///< index of the item of a radio or check group that this box stands for
    std::vector<int> Children;

    TLayoutExtents Design;  ///< as the form has it
    TLayoutExtents Now;
    TPerAxis<std::optional<int>> DesignClient;  ///< of its own client area
    TPerAxis<int> DesignRoom = {0, 0};          ///< the parent's client area then
    TLayoutAlign Align = TLayoutAlign::None;
    std::optional<TPerSide<bool>> GivenAnchors;
    TPerSide<bool> Anchored = {true, true, false, false};
    TPerSide<std::string> AnchorControl;
    TPerSide<TAnchorPoint> AnchorPoint = {TAnchorPoint::Near, TAnchorPoint::Near, TAnchorPoint::Near,
                                          TAnchorPoint::Near};
    TPerSide<TBoxLink> Links;
    int Around = 0;
    TPerSide<int> Space = {0, 0, 0, 0};
    int InnerSpace = 0;
    TPerAxis<TCellAlign> Cell = {TCellAlign::Fill, TCellAlign::Fill};
    TPerAxis<int> Least = {0, 0};
    TPerAxis<int> Most = {0, 0};  ///< 0 for no limit
    TChildSizing Spread;

    bool AutoSize = false;
    bool Scrolls = false;  ///< shows bars where it is too small
    bool Visible = true;
    bool TabVisible = true;  ///< of a page, which is laid out all the same
    bool ParentFont = true;
    bool WordWrap = false;
    std::optional<bool> RightToLeft;  ///< the parent's where the form does not say
    std::optional<bool> Mirrors;      ///< its children stand where they would in a mirror; else as above
    TLayoutFont Font;
    std::string Text;

    TPerSide<int> Frame = {0, 0, 0, 0};  ///< from the border to the client area
    TPerSide<int> Inset = {0, 0, 0, 0};  ///< from there to where aligned children stand
    TPerAxis<int> Bar = {0, 0};          ///< what a scroll bar at the far edge takes
    TPerAxis<int> Wish = {0, 0};         ///< size for what it holds, below 1 where it holds nothing

    TLayoutKind Kind() const { return Class->Kind; }
    /// Its own value, or that of its action; nullptr where neither holds the property.
    const TFormValue* Find(const char* property) const;
    int Room(std::size_t axis) const;
    /// Within the limits of the form.
    int Limited(std::size_t axis, int size) const;
    /// The size that it takes where nothing stretches it.
    int OwnSize(std::size_t axis) const;
    /// The side is kept, by Align or Anchors.
    bool Keeps(std::size_t side) const;
    /// Stands and stays where the form puts it.
    bool IsFree() const;
    bool IsFree(std::size_t axis) const;
    /// Its place counts as the form's where a parent sizes itself: down also that of one tied at its top.
    bool CountsAsFree(std::size_t axis) const;
};

/// The sides that an aligned control keeps.
const TPerSide<bool>& SidesOf(TLayoutAlign align);

struct TLayoutBoxes {
    std::vector<TLayoutBox> All;  ///< parents before their children
    const ITextMeasure& Texts;
    TLayoutOptions Options;
    std::vector<std::string> Notes;
    /// What stands on the form itself, seen or not, by name in upper case.
    std::unordered_map<std::string, const TLayoutNode*> OnForm;

    TLayoutBox& operator[](int index) { return All[static_cast<std::size_t>(index)]; }
    const TLayoutBox& operator[](int index) const { return All[static_cast<std::size_t>(index)]; }
};

}  // namespace tml

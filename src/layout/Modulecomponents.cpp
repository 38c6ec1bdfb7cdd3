#include "layout/Modulecomponents.h"

#include <algorithm>
#include <utility>

#include "base/Utf8.h"
#include "layout/Boxproperties.h"
#include "layout/Boxwishes.h"

namespace tml {
namespace {

constexpr TLayoutClass kComponentClass = {"", TLayoutKind::Component};
constexpr int kRoom = 8;  ///< around a component
constexpr TLayoutSize kCell = {120, 72};
constexpr int kColumns = 5;

TLayoutBox ComponentBox(const TLayoutBoxes& boxes, const TLayoutNode& node) {
    TLayoutBox box;
    box.Node = &node;
    box.Class = &kComponentClass;
    box.Parent = 0;
    box.Text = node.Name;
    box.RightToLeft = box.Mirrors = false;
    const TLayoutSize name = TextSize(boxes.Texts, node.Name, box.Font, 0, false);
    box.Design[0].Size = std::max(kComponentIcon, name.Width);
    box.Design[1].Size = kComponentIcon + name.Height;
    return box;
}

/// The form's file says where the icon stands, in whose middle the name is.
void PlaceIcon(TLayoutBox& box, int left, int top) {
    box.Design[0].Begin = std::max(0, ClampedLength(left - (box.Design[0].Size - kComponentIcon) / 2));
    box.Design[1].Begin = std::max(0, top);
}

void Enclose(TLayoutBox& module, const TLayoutBox& box) {
    for (std::size_t axis = 0; axis < kAxes; ++axis)
        module.Design[axis].Size =
            std::max(module.Design[axis].Size, ClampedLength(box.Design[axis].End() + kRoom));
}

void AddBox(TLayoutBoxes& boxes, TLayoutBox box) {
    Enclose(boxes.All.front(), box);
    boxes.All.front().Children.push_back(static_cast<int>(boxes.All.size()));
    boxes.All.push_back(std::move(box));
}

}  // namespace

bool IsOfWindows(std::string_view property) {
    constexpr std::string_view kOfWindows[] = {"Caption", "ClientWidth", "ClientHeight",
                                               "Color",   "BorderStyle", "TabOrder"};
    return std::any_of(std::begin(kOfWindows), std::end(kOfWindows),
                       [&](std::string_view name) { return SameText(name, property); });
}

bool IsDataModule(const TLayoutBoxes& boxes) {
    const TLayoutNode& form = *boxes.All.front().Node;
    if (boxes.All.size() > 1 || form.Children.empty()) return false;
    if (boxes.All.front().Kind() != TLayoutKind::Form) return false;
    return std::none_of(form.Properties.begin(), form.Properties.end(),
                        [](const auto& property) { return IsOfWindows(property.Name); });
}

void AddModuleComponents(TLayoutBoxes& boxes) {
    const TLayoutNode& form = *boxes.All.front().Node;
    boxes.All.front().Mirrors = false;
    std::vector<TLayoutBox> unplaced;
    int below = kRoom;
    for (const TLayoutNode& node : form.Children) {
        TLayoutBox box = ComponentBox(boxes, node);
        const auto left = LengthIn(node.Find("Left")), top = LengthIn(node.Find("Top"));
        if (!left && !top) {
            unplaced.push_back(std::move(box));
            continue;
        }
        PlaceIcon(box, left.value_or(0), top.value_or(0));
        below = std::max(below, box.Design[1].End() + kRoom);
        AddBox(boxes, std::move(box));
    }
    for (std::size_t i = 0; i < unplaced.size(); ++i) {
        const int column = static_cast<int>(i % kColumns), row = static_cast<int>(i / kColumns);
        PlaceIcon(unplaced[i], column * kCell.Width + (kCell.Width - kComponentIcon) / 2,
                  ClampedLength(below + std::int64_t{row} * kCell.Height));
        AddBox(boxes, std::move(unplaced[i]));
    }
}

}  // namespace tml

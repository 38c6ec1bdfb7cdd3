#include "layout/Boxreader.h"

#include <algorithm>
#include <map>
#include <utility>

#include "base/Utf8.h"
#include "layout/Boxproperties.h"
#include "layout/Buttonglyphs.h"
#include "layout/Modulecomponents.h"

namespace tml {
namespace {

constexpr int kItemSpace = 6;

/// The actions of a form and of its frames: each by the one that owns it and by its name in upper case.
using TActions = std::map<std::pair<const TLayoutNode*, std::string>, const TLayoutNode*>;

/// A component, and the form or frame that owns it.
struct TOwned {
    const TLayoutNode* Node;
    const TLayoutNode* Owner;
};

TActions ActionsOf(const TLayoutNode& form) {
    TActions actions;
    std::vector<TOwned> open = {{&form, &form}};
    while (!open.empty()) {
        const TOwned one = open.back();
        open.pop_back();
        const bool isList =
            SameText(one.Node->ClassName, "TActionList") || SameText(one.Node->ClassName, "TActionManager");
        for (const TLayoutNode& child : one.Node->Children) {
            if (isList) actions.emplace(std::pair(one.Owner, UpperCase(child.Name)), &child);
            open.push_back({&child, one.Node->IsFrame ? one.Node : one.Owner});
        }
    }
    return actions;
}

/// What a control says that has an action and nothing else of its own.
void TakeFromAction(TLayoutBox& box, const TActions& actions, const TLayoutNode* owner) {
    const auto action = actions.find({owner, UpperCase(NameIn(box.Node->Find("Action")))});
    if (action == actions.end()) return;
    box.Action = action->second;
    if (box.Node->Find("Caption") == nullptr) box.Text = TextIn(box.Find("Caption"));
    box.Visible = FlagIn(box.Find("Visible"), true);
}

/// Of its own: a list of images has that of the images.
bool HasSize(const TLayoutNode& node) {
    if (UpperCase(node.ClassName).ends_with("IMAGELIST")) return false;
    return node.Find("Width") != nullptr || node.Find("Height") != nullptr;
}

/// What only a frame stores at the root: its place on the designer, in the older library its tab order.
bool HasPlaceOfFrame(const TLayoutNode& root) {
    return root.Find("DesignLeft") != nullptr || root.Find("TabOrder") != nullptr;
}

/// nullptr for a component that is no control.
const TLayoutClass* ClassOf(const TLayoutNode& node, bool isRoot) {
    if (const TLayoutClass* const row = FindLayoutClass(node.ClassName)) return row;
    if (node.IsFrame || (isRoot && HasPlaceOfFrame(node))) return &LayoutClassOf(TLayoutKind::Frame);
    if (isRoot) return &LayoutClassOf(TLayoutKind::Form);
    return HasSize(node) ? &LayoutClassOf(TLayoutKind::Box) : nullptr;
}

/// In the older library few classes size themselves.
bool SizesItself(const TLayoutClass& type, TLayoutLook look) {
    const bool isText = type.Kind == TLayoutKind::Label || type.Kind == TLayoutKind::Edit;
    return type.AutoSize && (look == TLayoutLook::Lcl || isText);
}

TLayoutBox StartedBox(const TLayoutNode& node, const TLayoutClass& type, int parent, TLayoutLook look) {
    TLayoutBox box;
    box.Node = &node;
    box.Class = &type;
    box.Parent = parent;
    box.Align = type.Align;
    box.AutoSize = SizesItself(type, look);
    box.Around = type.Space;
    box.Scrolls = type.Kind == TLayoutKind::ScrollBox;
    box.Design[0].Size = type.Size.Width;
    box.Design[1].Size = type.Size.Height;
    return box;
}

/// A font that the form describes begins with the platform's own; any other is the parent's.
void HandDownFont(TLayoutBox& box, const TLayoutBox* parent) {
    const bool isOwn = !box.ParentFont || box.Font != TLayoutFont();
    if (!isOwn && parent != nullptr) box.Font = parent->Font;
}

void CompleteAnchors(TLayoutBox& box) {
    if (box.GivenAnchors) {
        box.Anchored = *box.GivenAnchors;
    } else if (box.Align != TLayoutAlign::None && box.Align != TLayoutAlign::Custom) {
        box.Anchored = SidesOf(box.Align);
    }
    for (int& space : box.Space)
        space = ClampedLength(space + box.Around);
}

void CompleteSizes(TLayoutBox& box) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const char* const size = axis == 0 ? "Width" : "Height";
        if (box.DesignClient[axis] && box.Node->Find(size) == nullptr)
            box.Design[axis].Size = *box.DesignClient[axis];
        box.Design[axis].Size = std::max(0, box.Design[axis].Size);
    }
}

/// A group spreads its items in its columns.
void SpreadItems(TLayoutBox& group, bool isRadio) {
    const auto count = static_cast<int>(group.Node->Find("Items.Strings")->Items.size());
    const int columns = std::clamp(LengthIn(group.Node->Find("Columns")).value_or(1), 1, std::max(1, count));
    const bool isDown = SameText(NameIn(group.Node->Find("ColumnLayout")), "clVerticalThenHorizontal");
    group.Spread.Order = isDown ? TChildOrder::Columns : TChildOrder::Rows;
    group.Spread.PerLine = isDown ? (count + columns - 1) / columns : columns;
    group.Spread.Shrink = {TChildResize::Scale, TChildResize::Scale};
    if (FlagIn(group.Node->Find("AutoFill"), true))
        group.Spread.Enlarge = {TChildResize::Equal, TChildResize::Equal};
    if (group.Node->Find("ChildSizing.LeftRightSpacing") == nullptr) group.Spread.Edge[0] = kItemSpace;
    if (group.Node->Find("ChildSizing.TopBottomSpacing") == nullptr)
        group.Spread.Edge[1] = isRadio ? 0 : kItemSpace;
}

/// The items of a group are controls that no form names.
void AddItems(TLayoutBoxes& boxes, int group) {
    const TLayoutNode& node = *boxes[group].Node;
    const TFormValue* const items = node.Find("Items.Strings");
    if (items == nullptr || items->Kind != TFormValueKind::List) return;
    const bool isRadio = boxes[group].Kind() == TLayoutKind::RadioGroup;
    SpreadItems(boxes[group], isRadio);
    const TLayoutClass& type = LayoutClassOf(isRadio ? TLayoutKind::RadioButton : TLayoutKind::CheckBox);
    for (std::size_t i = 0; i < items->Items.size(); ++i) {
        TLayoutBox box = StartedBox(node, type, group, TLayoutLook::Lcl);
        box.Item = static_cast<int>(i);
        box.Text = items->Items[i].Text;
        box.Font = boxes[group].Font;
        box.RightToLeft = boxes[group].RightToLeft;
        box.Mirrors = false;
        box.Cell = {TCellAlign::Near, TCellAlign::Center};
        boxes[group].Children.push_back(static_cast<int>(boxes.All.size()));
        boxes.All.push_back(std::move(box));
    }
}

bool HasItems(const TLayoutBox& box) {
    return box.Item < 0 && (box.Kind() == TLayoutKind::RadioGroup || box.Kind() == TLayoutKind::CheckGroup);
}

/// The index of the new box; -1 for what cannot be seen.
int AddBox(TLayoutBoxes& boxes, const TActions& actions, const TOwned& owned, int parent) {
    const TLayoutNode& node = *owned.Node;
    const TLayoutClass* const type = ClassOf(node, parent < 0);
    if (type == nullptr) return -1;
    TLayoutBox box = StartedBox(node, *type, parent, boxes.Options.Look);
    ReadBoxProperties(box);
    TakeFromAction(box, actions, owned.Owner);
    if (node.Find("Caption") == nullptr) box.Text += CaptionOfKind(NameIn(node.Find("Kind")));
    HandDownFont(box, parent < 0 ? nullptr : &boxes[parent]);
    if (!box.RightToLeft) box.RightToLeft = parent >= 0 && *boxes[parent].RightToLeft;
    if (!box.Mirrors) box.Mirrors = parent >= 0 && *boxes[parent].Mirrors;
    CompleteAnchors(box);
    CompleteSizes(box);
    const int index = static_cast<int>(boxes.All.size());
    if (parent >= 0) boxes[parent].Children.push_back(index);
    boxes.All.push_back(std::move(box));
    return index;
}

}  // namespace

// By hand instead of by recursion: a form may be as deep as it is long.
void ReadBoxes(TLayoutBoxes& boxes, const TLayoutNode& form) {
    const TActions actions = ActionsOf(form);
    for (const TLayoutNode& node : form.Children)
        boxes.OnForm.emplace(UpperCase(node.Name), &node);
    std::vector<std::pair<TOwned, int>> open = {{{&form, &form}, -1}};
    while (!open.empty()) {
        const auto [owned, parent] = open.back();
        open.pop_back();
        const int index = AddBox(boxes, actions, owned, parent);
        if (index < 0) continue;
        if (HasItems(boxes[index])) AddItems(boxes, index);
        const TLayoutNode* const owner = owned.Node->IsFrame ? owned.Node : owned.Owner;
        const std::vector<TLayoutNode>& children = owned.Node->Children;
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            open.emplace_back(TOwned{&*child, owner}, index);
    }
    if (IsDataModule(boxes)) AddModuleComponents(boxes);
}

}  // namespace tml

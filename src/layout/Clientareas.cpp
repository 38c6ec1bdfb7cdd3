#include "layout/Clientareas.h"

#include <algorithm>

#include "base/Utf8.h"
#include "layout/Boxproperties.h"
#include "layout/Boxwishes.h"

namespace tml {
namespace {

/// What a look keeps around lines of text, and around pages.
struct TLookRooms {
    int Menu;
    int Tab;
    int PageEdge;
};

constexpr TLookRooms kLclRooms = {10, 12, 2};
constexpr TLookRooms kVclRooms = {7, 11, 4};
/// Of a control that a line is drawn around.
constexpr int kLine = 2;
constexpr int kNarrowLine = 1;

const TLookRooms& RoomsOf(const TLayoutBoxes& boxes) {
    return boxes.Options.Look == TLayoutLook::Lcl ? kLclRooms : kVclRooms;
}

using TFindFrame = void (*)(const TLayoutBoxes&, TLayoutBox&);

void AddAround(TPerSide<int>& sides, int length) {
    for (int& side : sides)
        side = ClampedLength(side + length);
}

bool HasBorder(const TLayoutBox& box, std::string_view unlessGiven) {
    const TFormValue* const style = box.Node->Find("BorderStyle");
    return SameText(style == nullptr ? unlessGiven : std::string_view(style->Text), "bsSingle");
}

int LengthOf(const TLayoutBox& box, const char* property, int other) {
    return LengthIn(box.Node->Find(property)).value_or(other);
}

/// A bevel's room counts unless the form says that there is none.
int BevelsOf(const TLayoutBox& box) {
    const int width = LengthOf(box, "BevelWidth", 1);
    const TFormValue* const outer = box.Node->Find("BevelOuter");
    const TFormValue* const inner = box.Node->Find("BevelInner");
    const bool hasOuter = outer == nullptr || !SameText(outer->Text, "bvNone");
    const bool hasInner = inner != nullptr && !SameText(inner->Text, "bvNone");
    return (hasOuter ? width : 0) + (hasInner ? width : 0);
}

void FrameForm(const TLayoutBoxes& boxes, TLayoutBox& box) {
    if (MainMenuOf(*box.Node) != nullptr) box.Frame[kTop] = MenuBarHeight(boxes);
    AddAround(box.Inset, LengthOf(box, "BorderWidth", 0));
}

void FramePanel(const TLayoutBoxes& boxes, TLayoutBox& box) {
    if (box.Class->Name != "TPanel" && box.Class->Name != "TFlowPanel") return;
    if (HasBorder(box, "bsNone"))
        AddAround(box.Frame, boxes.Options.Look == TLayoutLook::Lcl ? kNarrowLine : kLine);
    AddAround(box.Inset, LengthOf(box, "BorderWidth", 0) + BevelsOf(box));
}

/// The older library takes the whole box for the client area and keeps aligned controls off the title.
void FrameTitled(const TLayoutBoxes& boxes, TLayoutBox& box) {
    TPerSide<int>& sides = boxes.Options.Look == TLayoutLook::Lcl ? box.Frame : box.Inset;
    AddAround(sides, kLine);
    if (!box.Text.empty()) sides[kTop] = std::max(sides[kTop], boxes.Texts.LineHeight(box.Font));
}

void FrameScrolled(const TLayoutBoxes&, TLayoutBox& box) {
    if (HasBorder(box, "bsSingle")) AddAround(box.Frame, kLine);
}

void FrameTabbed(const TLayoutBoxes& boxes, TLayoutBox& box) {
    AddAround(box.Frame, RoomsOf(boxes).PageEdge);
    if (!FlagIn(box.Node->Find("ShowTabs"), true) || box.Children.empty()) return;
    box.Frame[SideOfTabs(box)] = TabsDepth(boxes, box);
}

bool HasEdge(const TFormValue* edges, std::string_view name, bool other) {
    if (edges == nullptr || edges->Kind != TFormValueKind::Set) return other;
    return std::any_of(edges->Items.begin(), edges->Items.end(),
                       [&](const TFormValue& one) { return SameText(one.Text, name); });
}

void FrameToolBar(const TLayoutBoxes& boxes, TLayoutBox& box) {
    const bool isLcl = boxes.Options.Look == TLayoutLook::Lcl;
    if (box.Class->Name != "TToolBar") return;
    constexpr std::string_view kEdges[] = {"ebLeft", "ebTop", "ebRight", "ebBottom"};
    int width = 0;
    for (const char* const property : {"EdgeInner", "EdgeOuter"}) {
        const TFormValue* const style = box.Node->Find(property);
        width += style == nullptr || !SameText(style->Text, "esNone") ? 1 : 0;
    }
    for (std::size_t side = 0; side < kSides; ++side)
        box.Inset[side] =
            HasEdge(box.Node->Find("EdgeBorders"), kEdges[side], isLcl && side == kTop) ? width : 0;
    box.Inset[kLeft] += LengthOf(box, "Indent", isLcl ? 1 : 0);
}

TFindFrame FrameOf(TLayoutKind kind) {
    switch (kind) {
        case TLayoutKind::Form:
            return FrameForm;
        case TLayoutKind::Panel:
            return FramePanel;
        case TLayoutKind::GroupBox:
        case TLayoutKind::RadioGroup:
        case TLayoutKind::CheckGroup:
            return FrameTitled;
        case TLayoutKind::ScrollBox:
            return FrameScrolled;
        case TLayoutKind::PageControl:
            return FrameTabbed;
        case TLayoutKind::ToolBar:
            return FrameToolBar;
        default:
            return nullptr;
    }
}

}  // namespace

const TLayoutNode* MainMenuOf(const TLayoutNode& form) {
    const std::string name = NameIn(form.Find("Menu"));
    if (name.empty()) return nullptr;
    const auto menu = std::find_if(form.Children.begin(), form.Children.end(),
                                   [&](const TLayoutNode& child) { return SameText(child.Name, name); });
    return menu == form.Children.end() || menu->Children.empty() ? nullptr : &*menu;
}

int MenuBarHeight(const TLayoutBoxes& boxes) {
    return boxes.Texts.LineHeight({}) + RoomsOf(boxes).Menu;
}

std::size_t SideOfTabs(const TLayoutBox& box) {
    constexpr std::string_view kPositions[] = {"tpLeft", "tpTop", "tpRight", "tpBottom"};
    const TFormValue* const given = box.Node->Find("TabPosition");
    for (std::size_t side = 0; side < kSides && given != nullptr; ++side)
        if (SameText(given->Text, kPositions[side])) return side;
    return kTop;
}

std::vector<std::string> TabTexts(const TLayoutBoxes& boxes, const TLayoutBox& box) {
    std::vector<std::string> texts;
    for (const int child : box.Children)
        if (boxes[child].Visible && boxes[child].Kind() == TLayoutKind::Page)
            texts.push_back(boxes[child].Text);
    const TFormValue* const tabs = box.Node->Find("Tabs.Strings");
    if (texts.empty() && tabs != nullptr)
        for (const TFormValue& tab : tabs->Items)
            texts.push_back(tab.Text);
    return texts;
}

/// Tabs at the sides have upright texts in the VCL, and lines as long as the longest one in the LCL.
int TabsDepth(const TLayoutBoxes& boxes, const TLayoutBox& box) {
    const int line = boxes.Texts.LineHeight(box.Font);
    int room = line;
    if (AxisOf(SideOfTabs(box)) == 0 && boxes.Options.Look == TLayoutLook::Lcl)
        for (const std::string& text : TabTexts(boxes, box))
            room = std::max(room, TextSize(boxes.Texts, text, box.Font, 0, true).Width);
    return ClampedLength(room + RoomsOf(boxes).Tab);
}

void FindClientAreas(TLayoutBoxes& boxes) {
    for (TLayoutBox& box : boxes.All) {
        if (const TFindFrame find = FrameOf(box.Kind()); find != nullptr && box.Item < 0) find(boxes, box);
        if (box.Parent < 0) continue;
        const TLayoutBox& parent = boxes[box.Parent];
        for (std::size_t axis = 0; axis < kAxes; ++axis)
            box.DesignRoom[axis] = std::max(0, parent.DesignClient[axis].value_or(parent.Room(axis)));
    }
}

}  // namespace tml

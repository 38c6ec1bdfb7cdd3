#include "layout/Formlayout.h"

#include <algorithm>
#include <iterator>

#include "base/Utf8.h"
#include "layout/Boxlinks.h"
#include "layout/Boxplacement.h"
#include "layout/Boxreader.h"
#include "layout/Boxscaling.h"
#include "layout/Boxwishes.h"
#include "layout/Clientareas.h"
#include "layout/Itemdetails.h"
#include "layout/Neededarea.h"

namespace tml {
namespace {

/// Sizes that follow from places (a text that is broken into lines) and places that follow from those come to
/// rest within few rounds, or never.
constexpr int kMostRounds = 6;

constexpr int kScrollBar = 17;

/// A control that sizes itself moves what stands free in it to its upper left corner.
void MoveSpared(TLayoutBoxes& boxes, int parent) {
    TLayoutBox& box = boxes[parent];
    if (!box.AutoSize || box.Spread.Order != TChildOrder::None || box.Kind() == TLayoutKind::ToolBar) return;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const int spared = SparedRoom(boxes, parent, axis);
        if (spared == 0) continue;
        for (const int index : box.Children) {
            TLayoutBox& child = boxes[index];
            if (!child.Visible || !child.Anchored[NearOf(axis)] || child.Links[NearOf(axis)].Given) continue;
            if (child.Align != TLayoutAlign::None) continue;
            child.Design[axis].Begin -= spared;
            child.Now[axis].Begin -= spared;
            if (child.Anchored[FarOf(axis)]) child.Design[axis].Size += spared;
        }
    }
}

void SizeForm(TLayoutBox& form) {
    if (!form.AutoSize) return;
    for (std::size_t axis = 0; axis < kAxes; ++axis)
        form.Now[axis].Size = form.OwnSize(axis);
}

/// What is too small for what it holds shows bars, each of which takes room of the other axis.
void AddScrollBars(TLayoutBox& box) {
    if (!box.Scrolls) return;
    const auto overflows = [&](std::size_t axis) {
        return box.Wish[axis] > box.Now[axis].Size - box.Bar[axis];
    };
    box.Bar = {0, 0};
    for (const std::size_t axis : {1, 0, 1})
        if (overflows(axis)) box.Bar[1 - axis] = kScrollBar;
}

void PlaceWithin(TLayoutBoxes& boxes, int box, const TChildOrders& orders) {
    AddScrollBars(boxes[box]);
    PlaceChildren(boxes, box, orders);
}

std::vector<TLayoutExtents> PlacesOf(const TLayoutBoxes& boxes) {
    std::vector<TLayoutExtents> places;
    places.reserve(boxes.All.size());
    for (const TLayoutBox& box : boxes.All)
        places.push_back(box.Now);
    return places;
}

/// What stands in something hidden stays as the form has it.
std::vector<bool> LaidOut(const TLayoutBoxes& boxes) {
    std::vector<bool> laid;
    laid.reserve(boxes.All.size());
    for (const TLayoutBox& box : boxes.All)
        laid.push_back(box.Parent < 0 || (box.Visible && laid[static_cast<std::size_t>(box.Parent)]));
    return laid;
}

void PlaceAll(TLayoutBoxes& boxes) {
    const std::vector<bool> laid = LaidOut(boxes);
    const std::vector<TChildOrders> orders = LinkBoxes(boxes);
    for (int round = 0; round < kMostRounds; ++round) {
        const std::vector<TLayoutExtents> before = PlacesOf(boxes);
        for (std::size_t i = 0; i < boxes.All.size(); ++i)
            MoveSpared(boxes, static_cast<int>(i));
        FindWishes(boxes, orders);
        SizeForm(boxes.All.front());
        for (std::size_t i = 0; i < boxes.All.size(); ++i)
            if (laid[i]) PlaceWithin(boxes, static_cast<int>(i), orders[i]);
        if (PlacesOf(boxes) == before) return;
    }
}

TLayoutRect Cut(const TLayoutRect& rect, const TLayoutRect& by) {
    const int left = std::max(rect.Left, by.Left);
    const int top = std::max(rect.Top, by.Top);
    return {left, top, std::max(0, std::min(rect.Left + rect.Width, by.Left + by.Width) - left),
            std::max(0, std::min(rect.Top + rect.Height, by.Top + by.Height) - top)};
}

TLayoutRect ClientOf(const TLayoutBox& box) {
    return {box.Frame[kLeft], box.Frame[kTop], box.Room(0), box.Room(1)};
}

/// The page of a tab control that is in front, the first one where the form names none.
int OpenPage(const TLayoutBoxes& boxes, const TLayoutBox& control) {
    int open = -1;
    const TFormValue* const active = control.Node->Find("ActivePage");
    const TFormValue* const index = control.Node->Find("PageIndex");
    std::size_t place = 0;
    for (const int child : control.Children) {
        const TLayoutBox& page = boxes[child];
        if (page.Kind() != TLayoutKind::Page) continue;
        const bool isNamed = active != nullptr && page.Node->Name == active->Text;
        const bool isNumbered = index != nullptr && index->Text == std::to_string(place++);
        if (isNamed || isNumbered) return child;
        if (open < 0 && page.TabVisible) open = child;
    }
    return open;
}

/// Of every box, whether it is shown where its parent is.
std::vector<bool> InFront(const TLayoutBoxes& boxes) {
    std::vector<bool> front;
    front.reserve(boxes.All.size());
    for (const TLayoutBox& box : boxes.All)
        front.push_back(box.Parent < 0 || (box.Visible && box.Kind() != TLayoutKind::Page));
    for (const TLayoutBox& box : boxes.All) {
        const int page = OpenPage(boxes, box);
        if (page >= 0) front[static_cast<std::size_t>(page)] = true;
    }
    return front;
}

/// Children stand as in a mirror once all have their places. Those in cells have been put so from the right,
/// and the buttons of a tool bar begin there whether the form mirrors or not.
bool IsTurnedWithin(const TLayoutBox& parent) {
    if (parent.Spread.Order != TChildOrder::None) return false;
    return parent.Kind() == TLayoutKind::ToolBar ? *parent.RightToLeft : *parent.Mirrors;
}

TLayoutItem ItemOf(const TLayoutBoxes& boxes, const TLayoutBox& box, bool isInFront,
                   const std::vector<TLayoutItem>& before) {
    TLayoutItem item;
    item.Node = box.Node;
    item.Parent = box.Parent;
    item.Item = box.Item;
    item.Kind = box.Kind();
    item.Bounds = {box.Now[0].Begin, box.Now[1].Begin, box.Now[0].Size, box.Now[1].Size};
    item.Client = ClientOf(box);
    item.Place = {0, 0, item.Bounds.Width, item.Bounds.Height};
    TLayoutRect seen = item.Place;
    if (box.Parent >= 0) {
        const TLayoutItem& parent = before[static_cast<std::size_t>(box.Parent)];
        if (IsTurnedWithin(boxes[box.Parent]))
            item.Bounds.Left = parent.Client.Width - item.Bounds.Left - item.Bounds.Width;
        item.Place.Left = ClampedLength(parent.Place.Left + parent.Client.Left + item.Bounds.Left);
        item.Place.Top = ClampedLength(parent.Place.Top + parent.Client.Top + item.Bounds.Top);
        seen = Cut(item.Place, Cut(parent.Seen, {parent.Place.Left + parent.Client.Left,
                                                 parent.Place.Top + parent.Client.Top, parent.Client.Width,
                                                 parent.Client.Height}));
    }
    if (isInFront) item.Seen = seen;
    AddDetails(boxes, box, item);
    return item;
}

}  // namespace

std::string_view NameOf(TLayoutKind kind) {
    static constexpr std::string_view kNames[] = {
        "Form",       "Frame",       "Panel",        "GroupBox",   "ScrollBox",    "PageControl",
        "Page",       "TabControl",  "Label",        "StaticText", "Button",       "SpeedButton",
        "CheckBox",   "RadioButton", "RadioGroup",   "CheckGroup", "Edit",         "SpinEdit",
        "EditButton", "Memo",        "ComboBox",     "ListBox",    "CheckListBox", "ListView",
        "TreeView",   "Grid",        "ToolBar",      "ToolButton", "CoolBar",      "StatusBar",
        "Splitter",   "ProgressBar", "TrackBar",     "ScrollBar",  "UpDown",       "Image",
        "Shape",      "Bevel",       "DividerBevel", "PaintBox",   "ButtonPanel",  "Calendar",
        "Component",  "Box",
    };
    static_assert(std::size(kNames) == static_cast<std::size_t>(TLayoutKind::Box) + 1);
    return kNames[static_cast<std::size_t>(kind)];
}

TLayoutLook LookOf(std::string_view formFile) {
    return UpperCase(formFile).ends_with(".LFM") ? TLayoutLook::Lcl : TLayoutLook::Vcl;
}

TFormLayout LayOutForm(const TLayoutNode& form, const ITextMeasure& texts, const TLayoutOptions& options) {
    TLayoutBoxes boxes{{}, texts, options, {}, {}};
    ReadBoxes(boxes, form);
    ScaleBoxes(boxes);
    FindClientAreas(boxes);
    KeepThemeSizes(boxes);
    PlaceAll(boxes);
    TFormLayout layout;
    const std::vector<bool> front = InFront(boxes);
    layout.Items.reserve(boxes.All.size());
    for (std::size_t i = 0; i < boxes.All.size(); ++i)
        layout.Items.push_back(ItemOf(boxes, boxes.All[i], front[i], layout.Items));
    layout.Notes = std::move(boxes.Notes);
    return layout;
}

}  // namespace tml

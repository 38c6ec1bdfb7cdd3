#include "layout/Itemdetails.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

#include "base/Utf8.h"
#include "layout/Boxproperties.h"
#include "layout/Boxwishes.h"
#include "layout/Buttonglyphs.h"
#include "layout/Clientareas.h"
#include "layout/Coolbands.h"
#include "layout/Panelbuttons.h"
#include "layout/Toolbarrows.h"
#include "tables/Itemdata.h"

namespace tml {
namespace {

constexpr int kPartRoom = 8;
constexpr int kColumnWidth = 64;
constexpr int kStatusWidth = 50;
constexpr int kNodeRoom = 2;
constexpr int kNodeIndent = 16;

using TAddParts = void (*)(const TLayoutBoxes&, const TLayoutBox&, TLayoutItem&);

struct TNamedAlignment {
    std::string_view Name;
    TLayoutAlignment Value;
};

constexpr TNamedAlignment kAlignments[] = {
    {"taLeftJustify", TLayoutAlignment::Near}, {"taCenter", TLayoutAlignment::Center},
    {"taRightJustify", TLayoutAlignment::Far}, {"tlTop", TLayoutAlignment::Near},
    {"tlCenter", TLayoutAlignment::Center},    {"tlBottom", TLayoutAlignment::Far},
};

void TakeAlignment(const TFormValue* value, TLayoutAlignment& target) {
    for (const TNamedAlignment& one : kAlignments)
        if (value != nullptr && SameText(value->Text, one.Name)) target = one.Value;
}

bool IsCentered(TLayoutKind kind) {
    return kind == TLayoutKind::Panel || kind == TLayoutKind::Button || kind == TLayoutKind::SpeedButton ||
           kind == TLayoutKind::ToolButton;
}

/// Pieces beside each other, as wide as their texts, from a place on.
void AddRow(const TLayoutBoxes& boxes, TLayoutItem& item, const std::vector<std::string>& texts,
            TLayoutRect place) {
    for (const std::string& text : texts) {
        place.Width = TextSize(boxes.Texts, text, item.Font, 0, true).Width + 2 * kPartRoom;
        item.Parts.push_back({place, text});
        place.Left = ClampedLength(place.Left + place.Width);
    }
}

/// Pieces below each other: in the LCL as high as a line, in the VCL as their texts are wide, which stand
/// upright.
void AddColumn(const TLayoutBoxes& boxes, TLayoutItem& item, const std::vector<std::string>& texts,
               TLayoutRect place) {
    for (const std::string& text : texts) {
        const int line = boxes.Texts.LineHeight(item.Font) + kPartRoom;
        const int width = TextSize(boxes.Texts, text, item.Font, 0, true).Width + 2 * kPartRoom;
        place.Height = boxes.Options.Look == TLayoutLook::Lcl ? line : width;
        item.Parts.push_back({place, text});
        place.Top = ClampedLength(place.Top + place.Height);
    }
}

void AddMenuBar(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    const TLayoutNode* const menu = MainMenuOf(*box.Node);
    if (menu == nullptr) return;
    std::vector<std::string> captions;
    for (const TLayoutNode& entry : menu->Children)
        if (FlagIn(entry.Find("Visible"), true)) captions.push_back(TextIn(entry.Find("Caption")));
    AddRow(boxes, item, captions, {0, 0, 0, MenuBarHeight(boxes)});
}

void AddTabs(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    const TFormValue* const active = box.Node->Find("ActivePage");
    int open = 0, count = 0;
    for (const int child : box.Children) {
        if (!boxes[child].Visible || boxes[child].Kind() != TLayoutKind::Page) continue;
        if (active != nullptr && SameText(active->Text, boxes[child].Node->Name)) open = count;
        ++count;
    }
    const std::size_t side = SideOfTabs(box);
    const int depth = TabsDepth(boxes, box);
    const int far = box.Now[AxisOf(side)].Size - depth;
    const TLayoutRect first = AxisOf(side) == 1 ? TLayoutRect{0, IsFar(side) ? far : 0, 0, depth}
                                                : TLayoutRect{IsFar(side) ? far : 0, 0, depth, 0};
    if (AxisOf(side) == 1)
        AddRow(boxes, item, TabTexts(boxes, box), first);
    else
        AddColumn(boxes, item, TabTexts(boxes, box), first);
    if (!item.Parts.empty()) item.Parts[static_cast<std::size_t>(open)].IsOn = true;
}

/// The texts of a tree or list view as the form holds them, each with its place ("[0][2].Text").
std::vector<TItemData::TText> TextsOf(const TLayoutNode& node) {
    for (const TFormProperty& property : node.Properties)
        if (HoldsItems(property))
            if (const auto items = ReadItemData(property)) return items->Texts();
    return {};
}

/// Nodes below each other, those within others farther from the edge.
void AddNodes(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    const int height = std::max(1, boxes.Texts.LineHeight(box.Font)) + kNodeRoom;
    int top = 0;
    for (const TItemData::TText& node : TextsOf(*box.Node)) {
        if (top >= box.Now[1].Size) return;
        const auto depth = std::count(node.Place.begin(), node.Place.end(), '[');
        const int left = ClampedLength(static_cast<std::int64_t>(depth) * kNodeIndent);
        item.Parts.push_back({{left, top, std::max(0, box.Now[0].Size - left), height}, node.Text});
        top += height;
    }
}

/// Lines below each other as far as they can be seen.
void AddLines(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    const TFormValue* const lines = box.Node->Find("Items.Strings");
    if (lines == nullptr || lines->Kind != TFormValueKind::List) return;
    const int height = std::max(1, boxes.Texts.LineHeight(box.Font));
    const int chosen = LengthIn(box.Node->Find("ItemIndex")).value_or(-1);
    int top = 0;
    for (const TFormValue& line : lines->Items) {
        if (top >= box.Now[1].Size) return;
        const bool isOn = chosen == top / height;
        item.Parts.push_back({{0, top, box.Now[0].Size, height}, line.Text, isOn});
        top += height;
    }
}

/// The items of a collection beside each other, each with its width.
void AddColumns(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item, const char* collection,
                std::string_view caption, int otherWidth) {
    const TFormValue* const columns = box.Node->Find(collection);
    if (columns == nullptr) return;
    int left = 0;
    for (const std::vector<TFormProperty>& column : columns->Collection) {
        const int width = std::max(0, LengthIn(FindIn(column, "Width")).value_or(otherWidth));
        TLayoutPart part{{left, 0, width, boxes.Texts.LineHeight(box.Font) + kPartRoom},
                         TextIn(FindIn(column, caption))};
        TakeAlignment(FindIn(column, "Alignment"), part.Alignment);
        part.IsTitle = true;
        item.Parts.push_back(std::move(part));
        left = ClampedLength(left + width);
    }
}

void AddGridColumns(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    AddColumns(boxes, box, item, "Columns", "Title.Caption", kColumnWidth);
}

/// Which column of a list view a text of its items stands in.
std::size_t ColumnOf(const std::string& place) {
    const std::size_t open = place.find(".SubItems[");
    std::size_t index = 0;
    if (open == std::string::npos) return 0;
    std::from_chars(place.data() + open + 10, place.data() + place.size(), index);
    return index + 1;
}

/// Items with their texts below the titles of the columns; without these the first texts alone.
void AddCells(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    const std::vector<TLayoutPart> titles = item.Parts;
    const int height = std::max(1, boxes.Texts.LineHeight(box.Font)) + kNodeRoom;
    int top = titles.empty() ? -height : titles.front().Place.Height - height;
    for (const TItemData::TText& text : TextsOf(*box.Node)) {
        const std::size_t column = ColumnOf(text.Place);
        if (column == 0) top += height;
        if (top >= box.Now[1].Size) return;
        if (column >= std::max<std::size_t>(1, titles.size())) continue;
        TLayoutPart cell{{0, top, box.Now[0].Size, height}, text.Text};
        if (!titles.empty()) {
            cell.Place.Left = titles[column].Place.Left;
            cell.Place.Width = titles[column].Place.Width;
            cell.Alignment = titles[column].Alignment;
        }
        item.Parts.push_back(std::move(cell));
    }
}

void AddListColumns(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    const bool isReport = SameText(NameIn(box.Node->Find("ViewStyle")), "vsReport");
    if (isReport) AddColumns(boxes, box, item, "Columns", "Caption", kStatusWidth);
    AddCells(boxes, box, item);
}

void AddStatusPanels(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    if (FlagIn(box.Node->Find("SimplePanel"), boxes.Options.Look == TLayoutLook::Lcl))
        item.Text = TextIn(box.Node->Find("SimpleText"));
    else
        AddColumns(boxes, box, item, "Panels", "Text", kStatusWidth);
}

void AddGlyph(const TLayoutBoxes&, const TLayoutBox& box, TLayoutItem& item) {
    constexpr std::string_view kSides[] = {"blGlyphLeft", "blGlyphRight", "blGlyphTop", "blGlyphBottom"};
    item.Glyph = GlyphOf(*box.Node);
    const std::string side = NameIn(box.Node->Find("Layout"));
    for (std::size_t i = 0; i < std::size(kSides); ++i)
        if (SameText(side, kSides[i])) item.GlyphSide = static_cast<TLayoutGlyphSide>(i);
}

void AddPanelButtons(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    item.Parts = TPanelButtons(boxes, box).Parts;
}

TAddParts PartsOf(TLayoutKind kind) {
    switch (kind) {
        case TLayoutKind::Form:
            return AddMenuBar;
        case TLayoutKind::PageControl:
        case TLayoutKind::TabControl:
            return AddTabs;
        case TLayoutKind::Button:
        case TLayoutKind::SpeedButton:
            return AddGlyph;
        case TLayoutKind::ToolButton:
            return AddToolButtonDetails;
        case TLayoutKind::ListBox:
        case TLayoutKind::CheckListBox:
            return AddLines;
        case TLayoutKind::TreeView:
            return AddNodes;
        case TLayoutKind::Grid:
            return AddGridColumns;
        case TLayoutKind::ListView:
            return AddListColumns;
        case TLayoutKind::StatusBar:
            return AddStatusPanels;
        case TLayoutKind::CoolBar:
            return AddBands;
        case TLayoutKind::ButtonPanel:
            return AddPanelButtons;
        default:
            return nullptr;
    }
}

bool IsOn(const TLayoutBox& box) {
    if (box.Item >= 0) return LengthIn(box.Node->Find("ItemIndex")).value_or(-1) == box.Item;
    return FlagIn(box.Find("Checked"), false) || FlagIn(box.Node->Find("Down"), false) ||
           SameText(NameIn(box.Node->Find("State")), "cbChecked");
}

void AddOwnDetails(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    TakeAlignment(box.Node->Find("Alignment"), item.Alignment);
    TakeAlignment(box.Node->Find("Layout"), item.Layout);
    if (const TFormValue* color = box.Node->Find("Color")) item.Color = color->Text;
    if (const TAddParts add = PartsOf(box.Kind())) add(boxes, box, item);
}

}  // namespace

void AddDetails(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    item.Visible = box.Visible;
    item.AutoSize = box.AutoSize;
    item.Font = box.Font;
    item.Text = box.Text;
    item.WordWrap = box.WordWrap;
    item.Enabled = FlagIn(box.Find("Enabled"), true);
    item.RightToLeft = *box.RightToLeft;
    item.IsOn = IsOn(box);
    if (IsCentered(item.Kind)) item.Alignment = item.Layout = TLayoutAlignment::Center;
    if (box.Item < 0) AddOwnDetails(boxes, box, item);
}

}  // namespace tml

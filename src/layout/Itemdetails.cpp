#include "layout/Itemdetails.h"

#include <algorithm>

#include "base/Utf8.h"
#include "layout/Boxproperties.h"
#include "layout/Boxwishes.h"
#include "layout/Clientareas.h"
#include "layout/Panelbuttons.h"

namespace tml {
namespace {

constexpr int kPartRoom = 8;
constexpr int kColumnWidth = 64;
constexpr int kStatusWidth = 50;

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

const TFormValue* FindIn(const std::vector<TFormProperty>& item, std::string_view name) {
    const auto found = std::find_if(item.begin(), item.end(),
                                    [&](const TFormProperty& one) { return SameText(one.Name, name); });
    return found == item.end() ? nullptr : &found->Value;
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

void AddMenuBar(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    const TLayoutNode* const menu = MainMenuOf(*box.Node);
    if (menu == nullptr) return;
    std::vector<std::string> captions;
    for (const TLayoutNode& entry : menu->Children)
        if (FlagIn(entry.Find("Visible"), true)) captions.push_back(TextIn(entry.Find("Caption")));
    AddRow(boxes, item, captions, {0, 0, 0, MenuBarHeight(boxes)});
}

void AddTabs(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    std::vector<std::string> captions;
    const TFormValue* const active = box.Node->Find("ActivePage");
    int open = -1;
    for (const int child : box.Children) {
        if (!boxes[child].Visible || boxes[child].Kind() != TLayoutKind::Page) continue;
        if (active != nullptr && SameText(active->Text, boxes[child].Node->Name))
            open = static_cast<int>(captions.size());
        captions.push_back(boxes[child].Text);
    }
    const TFormValue* const tabs = box.Node->Find("Tabs.Strings");
    if (captions.empty() && tabs != nullptr)
        for (const TFormValue& tab : tabs->Items)
            captions.push_back(tab.Text);
    AddRow(boxes, item, captions, {0, 0, 0, TabsHeight(boxes, box)});
    if (!item.Parts.empty()) item.Parts[static_cast<std::size_t>(std::max(0, open))].IsOn = true;
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
        item.Parts.push_back(std::move(part));
        left = ClampedLength(left + width);
    }
}

void AddGridColumns(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    AddColumns(boxes, box, item, "Columns", "Title.Caption", kColumnWidth);
}

void AddListColumns(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    AddColumns(boxes, box, item, "Columns", "Caption", kStatusWidth);
}

void AddStatusPanels(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item) {
    if (FlagIn(box.Node->Find("SimplePanel"), boxes.Options.Look == TLayoutLook::Lcl))
        item.Text = TextIn(box.Node->Find("SimpleText"));
    else
        AddColumns(boxes, box, item, "Panels", "Text", kStatusWidth);
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
        case TLayoutKind::ListBox:
        case TLayoutKind::CheckListBox:
            return AddLines;
        case TLayoutKind::Grid:
            return AddGridColumns;
        case TLayoutKind::ListView:
            return AddListColumns;
        case TLayoutKind::StatusBar:
            return AddStatusPanels;
        case TLayoutKind::ButtonPanel:
            return AddPanelButtons;
        default:
            return nullptr;
    }
}

bool IsOn(const TLayoutBox& box) {
    if (box.Item >= 0) return LengthIn(box.Node->Find("ItemIndex")).value_or(-1) == box.Item;
    return FlagIn(box.Node->Find("Checked"), false) || FlagIn(box.Node->Find("Down"), false) ||
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
    item.Enabled = FlagIn(box.Node->Find("Enabled"), true);
    item.RightToLeft = *box.RightToLeft;
    item.IsOn = IsOn(box);
    if (IsCentered(item.Kind)) item.Alignment = item.Layout = TLayoutAlignment::Center;
    if (box.Item < 0) AddOwnDetails(boxes, box, item);
}

}  // namespace tml

#include "layout/Boxproperties.h"

#include <charconv>
#include <unordered_map>

#include "base/Utf8.h"

namespace tml {
namespace {

using TTake = void (*)(TLayoutBox&, const TFormValue&);

int Number(const TFormValue& value) {
    return LengthIn(&value).value_or(0);
}

template <typename T>
struct TNamed {
    std::string_view Name;
    T Value;
};

template <typename T, std::size_t count>
void TakeNamed(T& target, const TFormValue& value, const TNamed<T> (&names)[count]) {
    for (const TNamed<T>& one : names)
        if (SameText(value.Text, one.Name)) target = one.Value;
}

constexpr TNamed<TLayoutAlign> kAligns[] = {
    {"alNone", TLayoutAlign::None},     {"alTop", TLayoutAlign::Top},     {"alBottom", TLayoutAlign::Bottom},
    {"alLeft", TLayoutAlign::Left},     {"alRight", TLayoutAlign::Right}, {"alClient", TLayoutAlign::Client},
    {"alCustom", TLayoutAlign::Custom},
};
constexpr TNamed<TAnchorPoint> kPoints[] = {
    {"asrTop", TAnchorPoint::Near},  {"asrLeft", TAnchorPoint::Near},     {"asrBottom", TAnchorPoint::Far},
    {"asrRight", TAnchorPoint::Far}, {"asrCenter", TAnchorPoint::Center},
};
constexpr TNamed<TChildOrder> kOrders[] = {
    {"cclNone", TChildOrder::None},
    {"cclLeftToRightThenTopToBottom", TChildOrder::Rows},
    {"cclTopToBottomThenLeftToRight", TChildOrder::Columns},
};
constexpr TNamed<TChildResize> kResizes[] = {
    {"crsAnchorAligning", TChildResize::None},
    {"crsScaleChilds", TChildResize::Scale},
    {"crsHomogenousChildResize", TChildResize::Equal},
    {"crsHomogenousSpaceResize", TChildResize::Space},
};
constexpr TNamed<TCellAlign> kCells[] = {
    {"ccaFill", TCellAlign::Fill},
    {"ccaLeftTop", TCellAlign::Near},
    {"ccaRightBottom", TCellAlign::Far},
    {"ccaCenter", TCellAlign::Center},
};

bool Holds(const TFormValue& set, std::string_view name) {
    return std::any_of(set.Items.begin(), set.Items.end(),
                       [&](const TFormValue& item) { return SameText(item.Text, name); });
}

void TakeAnchors(TLayoutBox& box, const TFormValue& value) {
    if (value.Kind != TFormValueKind::Set) return;
    box.GivenAnchors = {Holds(value, "akLeft"), Holds(value, "akTop"), Holds(value, "akRight"),
                        Holds(value, "akBottom")};
}

void TakeFontStyle(TLayoutBox& box, const TFormValue& value) {
    box.Font.Bold = Holds(value, "fsBold");
    box.Font.Italic = Holds(value, "fsItalic");
    box.Font.Underline = Holds(value, "fsUnderline");
    box.Font.StrikeOut = Holds(value, "fsStrikeOut");
}

void TakeFontName(TLayoutBox& box, const TFormValue& value) {
    box.Font.Name = SameText(value.Text, "default") ? std::string() : value.Text;
}

void TakeText(TLayoutBox& box, const TFormValue& value) {
    box.Text = TextIn(&value);
}

template <std::size_t side>
void TakeAnchorControl(TLayoutBox& box, const TFormValue& value) {
    box.AnchorControl[side] = NameIn(&value);
}
template <std::size_t side>
void TakeAnchorPoint(TLayoutBox& box, const TFormValue& value) {
    TakeNamed(box.AnchorPoint[side], value, kPoints);
}
template <std::size_t side>
void TakeSpace(TLayoutBox& box, const TFormValue& value) {
    box.Space[side] = Number(value);
}

using TTakers = std::unordered_map<std::string_view, TTake>;

/// By name in upper case.
const TTakers kTakers = {
    {"LEFT", [](TLayoutBox& box, const TFormValue& value) { box.Design[0].Begin = Number(value); }},
    {"TOP", [](TLayoutBox& box, const TFormValue& value) { box.Design[1].Begin = Number(value); }},
    {"WIDTH", [](TLayoutBox& box, const TFormValue& value) { box.Design[0].Size = Number(value); }},
    {"HEIGHT", [](TLayoutBox& box, const TFormValue& value) { box.Design[1].Size = Number(value); }},
    {"CLIENTWIDTH", [](TLayoutBox& box, const TFormValue& value) { box.DesignClient[0] = Number(value); }},
    {"CLIENTHEIGHT", [](TLayoutBox& box, const TFormValue& value) { box.DesignClient[1] = Number(value); }},
    {"ALIGN", [](TLayoutBox& box, const TFormValue& value) { TakeNamed(box.Align, value, kAligns); }},
    {"ANCHORS", TakeAnchors},
    {"ANCHORSIDELEFT.CONTROL", TakeAnchorControl<kLeft>},
    {"ANCHORSIDETOP.CONTROL", TakeAnchorControl<kTop>},
    {"ANCHORSIDERIGHT.CONTROL", TakeAnchorControl<kRight>},
    {"ANCHORSIDEBOTTOM.CONTROL", TakeAnchorControl<kBottom>},
    {"ANCHORSIDELEFT.SIDE", TakeAnchorPoint<kLeft>},
    {"ANCHORSIDETOP.SIDE", TakeAnchorPoint<kTop>},
    {"ANCHORSIDERIGHT.SIDE", TakeAnchorPoint<kRight>},
    {"ANCHORSIDEBOTTOM.SIDE", TakeAnchorPoint<kBottom>},
    {"BORDERSPACING.LEFT", TakeSpace<kLeft>},
    {"BORDERSPACING.TOP", TakeSpace<kTop>},
    {"BORDERSPACING.RIGHT", TakeSpace<kRight>},
    {"BORDERSPACING.BOTTOM", TakeSpace<kBottom>},
    {"BORDERSPACING.AROUND", [](TLayoutBox& box, const TFormValue& value) { box.Around = Number(value); }},
    {"BORDERSPACING.INNERBORDER",
     [](TLayoutBox& box, const TFormValue& value) { box.InnerSpace = Number(value); }},
    {"BORDERSPACING.CELLALIGNHORIZONTAL",
     [](TLayoutBox& box, const TFormValue& value) { TakeNamed(box.Cell[0], value, kCells); }},
    {"BORDERSPACING.CELLALIGNVERTICAL",
     [](TLayoutBox& box, const TFormValue& value) { TakeNamed(box.Cell[1], value, kCells); }},
    {"CONSTRAINTS.MINWIDTH", [](TLayoutBox& box, const TFormValue& value) { box.Least[0] = Number(value); }},
    {"CONSTRAINTS.MINHEIGHT", [](TLayoutBox& box, const TFormValue& value) { box.Least[1] = Number(value); }},
    {"CONSTRAINTS.MAXWIDTH", [](TLayoutBox& box, const TFormValue& value) { box.Most[0] = Number(value); }},
    {"CONSTRAINTS.MAXHEIGHT", [](TLayoutBox& box, const TFormValue& value) { box.Most[1] = Number(value); }},
    {"CHILDSIZING.LEFTRIGHTSPACING",
     [](TLayoutBox& box, const TFormValue& value) { box.Spread.Edge[0] = Number(value); }},
    {"CHILDSIZING.TOPBOTTOMSPACING",
     [](TLayoutBox& box, const TFormValue& value) { box.Spread.Edge[1] = Number(value); }},
    {"CHILDSIZING.HORIZONTALSPACING",
     [](TLayoutBox& box, const TFormValue& value) { box.Spread.Between[0] = Number(value); }},
    {"CHILDSIZING.VERTICALSPACING",
     [](TLayoutBox& box, const TFormValue& value) { box.Spread.Between[1] = Number(value); }},
    {"CHILDSIZING.LAYOUT",
     [](TLayoutBox& box, const TFormValue& value) { TakeNamed(box.Spread.Order, value, kOrders); }},
    {"CHILDSIZING.CONTROLSPERLINE",
     [](TLayoutBox& box, const TFormValue& value) { box.Spread.PerLine = Number(value); }},
    {"CHILDSIZING.ENLARGEHORIZONTAL",
     [](TLayoutBox& box, const TFormValue& value) { TakeNamed(box.Spread.Enlarge[0], value, kResizes); }},
    {"CHILDSIZING.ENLARGEVERTICAL",
     [](TLayoutBox& box, const TFormValue& value) { TakeNamed(box.Spread.Enlarge[1], value, kResizes); }},
    {"CHILDSIZING.SHRINKHORIZONTAL",
     [](TLayoutBox& box, const TFormValue& value) { TakeNamed(box.Spread.Shrink[0], value, kResizes); }},
    {"CHILDSIZING.SHRINKVERTICAL",
     [](TLayoutBox& box, const TFormValue& value) { TakeNamed(box.Spread.Shrink[1], value, kResizes); }},
    {"AUTOSIZE", [](TLayoutBox& box, const TFormValue& value) { box.AutoSize = FlagIn(&value, false); }},
    {"AUTOSCROLL", [](TLayoutBox& box, const TFormValue& value) { box.Scrolls = FlagIn(&value, false); }},
    {"VISIBLE", [](TLayoutBox& box, const TFormValue& value) { box.Visible = FlagIn(&value, true); }},
    {"TABVISIBLE", [](TLayoutBox& box, const TFormValue& value) { box.TabVisible = FlagIn(&value, true); }},
    {"WORDWRAP", [](TLayoutBox& box, const TFormValue& value) { box.WordWrap = FlagIn(&value, false); }},
    {"PARENTFONT", [](TLayoutBox& box, const TFormValue& value) { box.ParentFont = FlagIn(&value, true); }},
    {"FONT.NAME", TakeFontName},
    {"FONT.STYLE", TakeFontStyle},
    {"FONT.HEIGHT",
     [](TLayoutBox& box, const TFormValue& value) { box.Font.Height = std::abs(Number(value)); }},
    {"FONT.COLOR", [](TLayoutBox& box, const TFormValue& value) { box.Font.Color = value.Text; }},
    {"BIDIMODE", [](TLayoutBox& box,
                    const TFormValue& value) { box.RightToLeft = !SameText(value.Text, "bdLeftToRight"); }},
    {"MIRRORLAYOUT", [](TLayoutBox& box, const TFormValue& value) { box.Mirrors = FlagIn(&value, false); }},
    {"CAPTION", TakeText},
    {"TEXT", TakeText},
    {"LINES.STRINGS", TakeText},
};

}  // namespace

std::optional<int> LengthIn(const TFormValue* value) {
    if (value == nullptr || value->Kind != TFormValueKind::Integer) return std::nullopt;
    std::int64_t number = value->Text.starts_with('-') ? -kFarthest : kFarthest;
    std::from_chars(value->Text.data(), value->Text.data() + value->Text.size(), number);
    return ClampedLength(number);
}

bool FlagIn(const TFormValue* value, bool other) {
    if (value == nullptr || value->Kind != TFormValueKind::Identifier) return other;
    return SameText(value->Text, "True");
}

std::string TextIn(const TFormValue* value) {
    if (value == nullptr) return {};
    if (value->Kind == TFormValueKind::String) return value->Text;
    std::string text;
    if (value->Kind != TFormValueKind::List) return text;
    for (const TFormValue& line : value->Items)
        text += (&line == &value->Items.front() ? "" : "\n") + line.Text;
    return text;
}

std::string NameIn(const TFormValue* value) {
    return value != nullptr && value->Kind == TFormValueKind::Identifier ? value->Text : std::string();
}

void ReadBoxProperties(TLayoutBox& box) {
    for (const TFormProperty& property : box.Node->Properties) {
        const auto taker = kTakers.find(UpperCase(property.Name));
        if (taker != kTakers.end()) taker->second(box, property.Value);
    }
}

const TFormValue* FindIn(const std::vector<TFormProperty>& item, std::string_view name) {
    const auto found = std::find_if(item.begin(), item.end(),
                                    [&](const TFormProperty& one) { return SameText(one.Name, name); });
    return found == item.end() ? nullptr : &found->Value;
}

}  // namespace tml

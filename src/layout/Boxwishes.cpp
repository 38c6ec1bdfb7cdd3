#include "layout/Boxwishes.h"

#include <algorithm>

#include "base/Utf8.h"
#include "layout/Boxproperties.h"
#include "layout/Buttonglyphs.h"
#include "layout/Neededarea.h"
#include "layout/Panelbuttons.h"
#include "layout/Toolbarrows.h"

namespace tml {
namespace {

/// Between the picture and the text of a button.
constexpr int kGlyphSpace = 4;
/// Around the line of a combo box.
constexpr int kListRoom = 8;
constexpr int kEmptyRoom = 12;
constexpr int kEditRoom = 10;
/// What the arrow of a combo box needs, below which no font makes it.
constexpr int kLeastEdit = 25;
constexpr int kLeastList = 23;

std::string WithoutMarks(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size()) ++i;
        plain += text[i];
    }
    return plain;
}

/// Lines that a text takes which is broken at blanks, and the widest of them.
class TWrapping {
  public:
    TWrapping(const ITextMeasure& texts, const TLayoutFont& font, int width)
        : texts_(texts), font_(font), width_(width), blank_(texts.Width(" ", font)) {}

    void Add(std::string_view line) {
        int place = 0;
        ++Lines;
        while (!line.empty()) {
            const std::size_t end = std::min(line.find(' '), line.size());
            const int word = texts_.Width(line.substr(0, end), font_);
            if (place > 0 && place + blank_ + word > width_) {
                place = 0;
                ++Lines;
            }
            place = ClampedLength(std::int64_t{place} + (place > 0 ? blank_ : 0) + word);
            Widest = std::max(Widest, place);
            line.remove_prefix(std::min(end + 1, line.size()));
        }
    }

    int Lines = 0;
    int Widest = 0;

  private:
    const ITextMeasure& texts_;
    const TLayoutFont& font_;
    int width_;
    int blank_;
};

bool IsStretched(const TLayoutBox& box, std::size_t axis) {
    return box.Keeps(NearOf(axis)) && box.Keeps(FarOf(axis));
}

TLayoutSize WordsWish(const TLayoutBoxes& boxes, const TLayoutBox& box) {
    if (box.Text.empty()) return {1, 1};
    int width = 0;
    if (box.WordWrap) width = IsStretched(box, 0) ? box.Now[0].Size : box.Most[0];
    const bool marksKeys = FlagIn(box.Node->Find("ShowAccelChar"), true);
    return TextSize(boxes.Texts, box.Text, box.Font, width, marksKeys);
}

/// The theme draws marks and bars for its own font, however small that of the control is.
int LineOf(const TLayoutBoxes& boxes, const TLayoutBox& box) {
    const int own = boxes.Texts.LineHeight(box.Font);
    if (boxes.Options.Look != TLayoutLook::Lcl) return own;
    if (box.Kind() == TLayoutKind::StatusBar) return boxes.Texts.LineHeight({});
    const bool hasMark = box.Kind() == TLayoutKind::CheckBox || box.Kind() == TLayoutKind::RadioButton;
    return hasMark ? std::max(own, boxes.Texts.LineHeight({})) : own;
}

/// A box that can be typed in is an edit; another one is lower once it has items.
int ComboHeight(const TLayoutBoxes& boxes, const TLayoutBox& box) {
    const std::string style = NameIn(box.Node->Find("Style"));
    const bool isEdit = style.empty() || SameText(style, "csDropDown") || SameText(style, "csSimple");
    const TFormValue* const items = box.Node->Find("Items.Strings");
    const bool isEmpty = items == nullptr || items->Items.empty();
    const int line = boxes.Texts.LineHeight(box.Font);
    if (isEdit) return std::max(line + kEditRoom, kLeastEdit);
    return std::max(line + (isEmpty ? kEmptyRoom : kListRoom), kLeastList);
}

TLayoutSize LabelledWish(const TLayoutBoxes& boxes, const TLayoutBox& box) {
    TLayoutSize size = TextSize(boxes.Texts, box.Text, box.Font, 0, true);
    const TLayoutSize glyph = box.Item < 0 ? GlyphOf(*box.Node) : TLayoutSize();
    const bool hasBoth = size.Width > 0 && glyph.Width > 0;
    size.Width += glyph.Width + (hasBoth ? kGlyphSpace : 0);
    size.Height = std::max({size.Height, LineOf(boxes, box), glyph.Height});
    const bool isBare = box.Kind() == TLayoutKind::StaticText && boxes.Options.Look == TLayoutLook::Vcl;
    const TLayoutSize around = isBare ? TLayoutSize() : box.Class->Around;
    return {size.Width + around.Width, size.Height + around.Height};
}

/// A title with the frame to its sides.
TLayoutSize TitleWish(const TLayoutBoxes& boxes, const TLayoutBox& box) {
    const TLayoutSize text = TextSize(boxes.Texts, box.Text, box.Font, 0, true);
    return {text.Width + box.Class->Around.Width, box.Frame[kTop] + box.Frame[kBottom]};
}

TLayoutSize OwnWish(const TLayoutBoxes& boxes, const TLayoutBox& box) {
    const TLayoutSize& around = box.Class->Around;
    switch (box.Class->Fit) {
        case TLayoutFit::Text:
            return WordsWish(boxes, box);
        case TLayoutFit::Title:
            return TitleWish(boxes, box);
        case TLayoutFit::Fixed:
            return around;
        case TLayoutFit::Combo:
            return {0, ComboHeight(boxes, box)};
        case TLayoutFit::List:
            return {0, std::max(boxes.Texts.LineHeight(box.Font) + kListRoom, kLeastList)};
        case TLayoutFit::TextLine:
            return {0, LineOf(boxes, box) + around.Height};
        case TLayoutFit::Buttons:
            return TPanelButtons(boxes, box).Needed;
        case TLayoutFit::Labelled:
            return LabelledWish(boxes, box);
        default:
            return {};
    }
}

void AddChildren(const TLayoutBoxes& boxes, int index, const TChildOrders& orders, TPerAxis<int>& wish) {
    const TLayoutBox& box = boxes[index];
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const int room = NeededRoom(boxes, index, axis, orders);
        if (room > 0)
            wish[axis] =
                std::max(wish[axis], ClampedLength(room + box.Frame[NearOf(axis)] + box.Frame[FarOf(axis)]));
    }
}

TPerAxis<int> WishOf(const TLayoutBoxes& boxes, int index, const TChildOrders& orders) {
    const TLayoutBox& box = boxes[index];
    if (box.Kind() == TLayoutKind::ToolBar) {
        const TLayoutSize size = ToolBarWish(boxes, index);
        return {size.Width, size.Height};
    }
    // It keeps the size that the form gives it, whatever its bands do.
    if (box.Kind() == TLayoutKind::CoolBar) return {0, 0};
    const TLayoutSize own = OwnWish(boxes, box);
    TPerAxis<int> wish = {own.Width, own.Height};
    if (!box.Children.empty()) AddChildren(boxes, index, orders, wish);
    for (int& one : wish)
        if (one > 0) one = ClampedLength(one + 2 * box.InnerSpace);
    return wish;
}

}  // namespace

TLayoutSize TextSize(const ITextMeasure& texts, std::string_view text, const TLayoutFont& font, int width,
                     bool marksKeys) {
    const std::string plain = marksKeys ? WithoutMarks(text) : std::string(text);
    TWrapping wrapping(texts, font, width);
    TLayoutSize size;
    for (std::string_view rest = plain;;) {
        const std::size_t end = rest.find('\n');
        const std::string_view line = rest.substr(0, end);
        if (width > 0)
            wrapping.Add(line);
        else
            size.Width = std::max(size.Width, texts.Width(line, font));
        size.Height += 1;
        if (end == std::string_view::npos) break;
        rest.remove_prefix(end + 1);
    }
    const int lines = width > 0 ? wrapping.Lines : size.Height;
    return {width > 0 ? wrapping.Widest : size.Width,
            ClampedLength(std::int64_t{lines} * texts.LineHeight(font))};
}

// Children first: they come behind their parents.
void FindWishes(TLayoutBoxes& boxes, const std::vector<TChildOrders>& orders) {
    for (std::size_t i = boxes.All.size(); i-- > 0;)
        boxes.All[i].Wish = WishOf(boxes, static_cast<int>(i), orders[i]);
}

}  // namespace tml

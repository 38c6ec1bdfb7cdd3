#include "layout/Panelbuttons.h"

#include <algorithm>

#include "base/Utf8.h"
#include "layout/Boxproperties.h"
#include "layout/Boxwishes.h"

namespace tml {
namespace {

/// Of the theme: the least width of a button, the height of one with a picture.
constexpr int kLeastWidth = 75;
constexpr int kPictureHeight = 30;
constexpr int kPictureWidth = 24;
constexpr int kCaptionRoom = 10;
constexpr int kLineAbove = 2;

struct TPanelButton {
    const char* Flag;
    const char* CaptionProperty;
    const char* Caption;
};

/// In the order from the right end; help stands at the left one.
constexpr TPanelButton kPanelButtons[] = {{"pbOK", "OKButton.Caption", "&OK"},
                                          {"pbCancel", "CancelButton.Caption", "Cancel"},
                                          {"pbClose", "CloseButton.Caption", "&Close"},
                                          {"pbHelp", "HelpButton.Caption", "&Help"}};

bool IsGiven(const TFormValue* set, std::string_view flag) {
    return set == nullptr || std::any_of(set->Items.begin(), set->Items.end(),
                                         [&](const TFormValue& one) { return SameText(one.Text, flag); });
}

TLayoutPart PartOf(const TLayoutBoxes& boxes, const TLayoutBox& panel, const TPanelButton& button) {
    TLayoutPart part;
    const TFormValue* const caption = panel.Node->Find(button.CaptionProperty);
    part.Text = caption == nullptr ? button.Caption : TextIn(caption);
    part.Alignment = TLayoutAlignment::Center;
    const bool hasPicture = IsGiven(panel.Node->Find("ShowGlyphs"), button.Flag);
    const TLayoutSize text = TextSize(boxes.Texts, part.Text, panel.Font, 0, true);
    part.Place.Width = std::max(kLeastWidth, text.Width + kCaptionRoom + (hasPicture ? kPictureWidth : 0));
    part.Place.Height = std::max(text.Height + kCaptionRoom, hasPicture ? kPictureHeight : 0);
    return part;
}

}  // namespace

TPanelButtons::TPanelButtons(const TLayoutBoxes& boxes, const TLayoutBox& panel) {
    const int space = std::max(0, LengthIn(panel.Node->Find("Spacing")).value_or(6));
    const int top = FlagIn(panel.Node->Find("ShowBevel"), true) ? kLineAbove + space : 0;
    int right = panel.Now[0].Size;
    for (const TPanelButton& button : kPanelButtons) {
        if (!IsGiven(panel.Node->Find("ShowButtons"), button.Flag)) continue;
        TLayoutPart part = PartOf(boxes, panel, button);
        const bool isHelp = &button == std::end(kPanelButtons) - 1;
        part.Place.Left = isHelp ? 0 : right - part.Place.Width;
        part.Place.Top = top;
        right -= part.Place.Width + space;
        Needed.Width += part.Place.Width + (Parts.empty() ? 0 : space);
        Needed.Height = std::max(Needed.Height, part.Place.Height + top);
        Parts.push_back(std::move(part));
    }
}

}  // namespace tml

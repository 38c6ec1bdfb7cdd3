#include "layout/Boxscaling.h"

#include <algorithm>

#include "base/Utf8.h"
#include "layout/Boxproperties.h"
#include "layout/Clientareas.h"

namespace tml {
namespace {

constexpr int kDesignResolution = 96;
constexpr int kSliderHeight = 22;

/// What a window has around its client area.
constexpr TPerAxis<int> kWindowFrame = {16, 39};

/// The older library gives a form's size with the window's frame, and its client area without a menu.
void TakeOffWindow(TLayoutBox& form, int menuBar) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const int client = form.Design[axis].Size - kWindowFrame[axis] - (axis == 1 ? menuBar : 0);
        form.DesignClient[axis] = std::max(0, form.DesignClient[axis].value_or(client));
        form.Design[axis].Size = *form.DesignClient[axis] + (axis == 1 ? menuBar : 0);
    }
}

int Scaled(int length, int from, int to) {
    const std::int64_t product = std::int64_t{length} * to * 2;
    return ClampedLength((product + (product < 0 ? -from : from)) / (2 * std::int64_t{from}));
}

template <typename... TLengths>
void ScaleAll(int from, int to, TLengths&... lengths) {
    ((lengths = Scaled(lengths, from, to)), ...);
}

void ScaleBox(TLayoutBox& box, int from, int to) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        ScaleAll(from, to, box.Design[axis].Begin, box.Design[axis].Size, box.Least[axis], box.Most[axis],
                 box.Spread.Edge[axis], box.Spread.Between[axis], box.Space[NearOf(axis)],
                 box.Space[FarOf(axis)]);
        if (box.DesignClient[axis]) ScaleAll(from, to, *box.DesignClient[axis]);
    }
    ScaleAll(from, to, box.InnerSpace, box.Font.Height);
}

/// The resolution that the form was drawn at.
int DesignResolution(const TLayoutNode& form, TLayoutLook look) {
    const char* const property = look == TLayoutLook::Vcl ? "PixelsPerInch" : "DesignTimePPI";
    const int given = LengthIn(form.Find(property)).value_or(kDesignResolution);
    return std::max(1, given);
}

}  // namespace

void ScaleBoxes(TLayoutBoxes& boxes) {
    TLayoutBox& root = boxes.All.front();
    const int menuBar = MainMenuOf(*root.Node) == nullptr ? 0 : MenuBarHeight(boxes);
    if (boxes.Options.Look == TLayoutLook::Vcl && root.Kind() == TLayoutKind::Form)
        TakeOffWindow(root, menuBar);
    const int from = DesignResolution(*root.Node, boxes.Options.Look);
    const int to = boxes.Options.Scaled ? std::max(1, boxes.Options.PixelsPerInch) : from;
    for (TLayoutBox& box : boxes.All) {
        if (from != to) ScaleBox(box, from, to);
        box.Now = box.Design;
        for (std::size_t axis = 0; axis < kAxes; ++axis)
            box.Now[axis].Size = box.Limited(axis, box.Now[axis].Size);
    }
}

// It makes a bar that shows its value no lower than the value and the slider are.
void KeepThemeSizes(TLayoutBoxes& boxes) {
    if (boxes.Options.Look == TLayoutLook::Vcl) return;
    for (TLayoutBox& box : boxes.All) {
        if (box.Kind() != TLayoutKind::TrackBar) continue;
        if (SameText(NameIn(box.Node->Find("Orientation")), "trVertical")) continue;
        box.Least[1] = std::max(box.Least[1], boxes.Texts.LineHeight(box.Font) + kSliderHeight);
    }
}

}  // namespace tml

#include "layout/Coolbands.h"

#include <algorithm>

#include "base/Utf8.h"
#include "layout/Boxproperties.h"

namespace tml {
namespace {

/// Each is held against all others; there are hardly ever ten.
constexpr std::size_t kMostBands = 50;

struct TBand {
    TLayoutExtents Place;  ///< of its control
    std::string Text;
};

std::vector<TBand> BandsOf(const TLayoutBoxes& boxes, const TLayoutBox& bar) {
    std::vector<TBand> bands;
    const TFormValue* const items = bar.Node->Find("Bands");
    if (items == nullptr) return bands;
    for (const std::vector<TFormProperty>& band : items->Collection) {
        const std::string control = NameIn(FindIn(band, "Control"));
        for (const int child : bar.Children)
            if (boxes[child].Visible && SameText(boxes[child].Node->Name, control))
                bands.push_back({boxes[child].Now, TextIn(FindIn(band, "Text"))});
        if (bands.size() == kMostBands) break;
    }
    return bands;
}

/// From the end of the one before to its own end, or that of the bar where it is the last of its row.
TLayoutExtent Along(const std::vector<TBand>& bands, const TBand& band, std::size_t along, int room) {
    const TLayoutExtent& own = band.Place[along];
    const TLayoutExtent& across = band.Place[1 - along];
    int begin = 0, end = room;
    for (const TBand& other : bands) {
        const TLayoutExtent& row = other.Place[1 - along];
        const TLayoutExtent& place = other.Place[along];
        if (row.Begin >= across.End() || row.End() <= across.Begin) continue;
        if (place.End() <= own.Begin) begin = std::max(begin, place.End());
        if (place.Begin >= own.End()) end = own.End();
    }
    return {begin, std::max(0, end - begin)};
}

}  // namespace

void AddBands(const TLayoutBoxes& boxes, const TLayoutBox& bar, TLayoutItem& item) {
    const std::size_t along = FlagIn(bar.Node->Find("Vertical"), false) ? 1 : 0;
    const std::vector<TBand> bands = BandsOf(boxes, bar);
    for (const TBand& band : bands) {
        TLayoutExtents place = band.Place;
        place[along] = Along(bands, band, along, bar.Room(along));
        item.Parts.push_back({{place[0].Begin, place[1].Begin, place[0].Size, place[1].Size}, band.Text});
    }
}

}  // namespace tml

#include "layout/Layoutbox.h"

#include <algorithm>

namespace tml {

int ClampedLength(std::int64_t length) {
    return static_cast<int>(std::clamp<std::int64_t>(length, -kFarthest, kFarthest));
}

const TFormValue* TLayoutBox::Find(const char* property) const {
    const TFormValue* const own = Node->Find(property);
    return own == nullptr && Action != nullptr ? Action->Find(property) : own;
}

int TLayoutBox::Room(std::size_t axis) const {
    return std::max(0, Now[axis].Size - Frame[NearOf(axis)] - Frame[FarOf(axis)] - Bar[axis]);
}

int TLayoutBox::Limited(std::size_t axis, int size) const {
    if (Most[axis] > 0 && Most[axis] >= Least[axis]) size = std::min(size, Most[axis]);
    return std::max(size, Least[axis]);
}

int TLayoutBox::OwnSize(std::size_t axis) const {
    return Limited(axis, AutoSize && Wish[axis] > 0 ? Wish[axis] : Now[axis].Size);
}

bool TLayoutBox::Keeps(std::size_t side) const {
    return Anchored[side] || SidesOf(Align)[side];
}

bool TLayoutBox::IsFree(std::size_t axis) const {
    return Align == TLayoutAlign::None && Anchored[NearOf(axis)] && !Anchored[FarOf(axis)] &&
           !Links[NearOf(axis)].Given;
}

bool TLayoutBox::CountsAsFree(std::size_t axis) const {
    if (axis == 0) return IsFree(axis);
    return Align == TLayoutAlign::None && Anchored[kTop] && !Anchored[kBottom] &&
           AnchorControl[kBottom].empty();
}

bool TLayoutBox::IsFree() const {
    return IsFree(0) && IsFree(1);
}

const TPerSide<bool>& SidesOf(TLayoutAlign align) {
    static constexpr TPerSide<bool> kKept[] = {
        {false, false, false, false},  // None
        {true, true, true, false},     // Top
        {true, false, true, true},     // Bottom
        {true, true, false, true},     // Left
        {false, true, true, true},     // Right
        {true, true, true, true},      // Client
        {false, false, false, false},  // Custom
    };
    return kKept[static_cast<std::size_t>(align)];
}

}  // namespace tml

#include "source/Outline.h"

#include "source/Cppoutline.h"
#include "source/Pascaloutline.h"
#include "source/Sourcetext.h"

namespace tml {

std::vector<TRegion> ReadOutline(const TSourceText& source) {
    return source.Language().IsCPPSource ? ReadCppOutline(source) : ReadPascalOutline(source);
}

std::size_t TRegionFinder::At(std::size_t offset) {
    for (; next_ < regions_.size() && regions_[next_].Begin <= offset; ++next_)
        if (offset < regions_[next_].End) innermost_ = next_;
    while (innermost_ != kNoRegion && regions_[innermost_].End <= offset)
        innermost_ = regions_[innermost_].Parent;
    return innermost_;
}

std::size_t TRegionStack::Open(TRegionKind kind, std::size_t begin) {
    TRegion& region = regions_.emplace_back();
    region.Kind = kind;
    region.Begin = begin;
    region.Parent = open_.empty() ? kNoRegion : open_.back();
    open_.push_back(regions_.size() - 1);
    return open_.back();
}

void TRegionStack::Close(std::size_t end) {
    regions_[open_.back()].End = end;
    open_.pop_back();
}

void TRegionStack::CloseTo(std::size_t depth, std::size_t end) {
    while (open_.size() > depth)
        Close(end);
}

TRegion* TRegionStack::Top(std::size_t level) {
    return level < open_.size() ? &regions_[open_[open_.size() - 1 - level]] : nullptr;
}

std::size_t TRegionStack::DepthOf(TRegionKind kind) const {
    std::size_t depth = open_.size();
    while (depth > 0 && regions_[open_[depth - 1]].Kind != kind)
        --depth;
    return depth;
}

std::vector<TRegion> TRegionStack::Take(std::size_t end) {
    CloseTo(0, end);
    return std::move(regions_);
}

}  // namespace tml

#include "windows/Controls.h"

#include <algorithm>

namespace tml {

void TMenuItem::Insert(std::size_t index, std::shared_ptr<TMenuItem> item) {
    const std::size_t place = std::min(index, Items.size());
    Items.insert(Items.begin() + static_cast<std::ptrdiff_t>(place), std::move(item));
}

void TMenuItem::Remove(const TMenuItem* item) {
    std::erase_if(Items, [item](const auto& candidate) { return candidate.get() == item; });
}

void TMenuItem::Click() {
    // A copy: the handler may close the window that the item belongs to.
    const auto handler = OnClick;
    if (Enabled && handler) handler();
}

void TForm::Changed() const {
    if (OnChange) OnChange();
}

TListItem& TListView::Add() {
    items_.push_back(std::make_unique<TListItem>());
    items_.back()->id_ = nextId_++;
    Touch();
    return *items_.back();
}

void TListView::Clear() {
    items_.clear();
    Touch();
}

void TListView::Sort(const std::function<int(const TListItem&, const TListItem&)>& compare) {
    // A merge by hand: a comparison that never gives 0 is no order that the standard sorts may be given.
    std::vector<std::unique_ptr<TListItem>> other(items_.size());
    for (std::size_t width = 1; width < items_.size(); width *= 2) {
        for (std::size_t begin = 0; begin < items_.size(); begin += 2 * width) {
            std::size_t left = begin;
            const std::size_t middle = std::min(begin + width, items_.size());
            const std::size_t end = std::min(begin + 2 * width, items_.size());
            std::size_t right = middle;
            for (std::size_t out = begin; out < end; ++out) {
                const bool takeLeft =
                    right == end || (left < middle && compare(*items_[left], *items_[right]) <= 0);
                other[out] = std::move(items_[takeLeft ? left++ : right++]);
            }
        }
        items_.swap(other);
    }
    Touch();
}

TListItem* TListView::Find(int id) const {
    const auto found =
        std::find_if(items_.begin(), items_.end(), [id](const auto& item) { return item->Id() == id; });
    return found == items_.end() ? nullptr : found->get();
}

TListItem* TListView::FirstSelected() const {
    const auto found =
        std::find_if(items_.begin(), items_.end(), [](const auto& item) { return item->Selected; });
    return found == items_.end() ? nullptr : found->get();
}

TListItem* TListView::NextSelected(const TListItem& item) const {
    bool behind = false;
    for (const auto& candidate : items_) {
        if (behind && candidate->Selected) return candidate.get();
        behind = behind || candidate.get() == &item;
    }
    return nullptr;
}

int TListView::SelectedCount() const {
    return static_cast<int>(
        std::count_if(items_.begin(), items_.end(), [](const auto& item) { return item->Selected; }));
}

}  // namespace tml

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

void TForm::Close(TModalResult result) {
    ModalResult = result;
    Changed();
}

void TForm::Changed() const {
    if (OnChange) OnChange();
}

}  // namespace tml

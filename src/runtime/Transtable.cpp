#include "runtime/Transtable.h"

#include <algorithm>
#include <utility>

#include "base/Utf8.h"
#include "tables/Propertykinds.h"
#include "tables/Textmerge.h"

namespace tml {

TTransProgress& TTransProgress::operator+=(const TTransProgress& other) {
    Texts += other.Texts;
    for (std::size_t i = 0; i < States.size(); ++i)
        States[i] += other.States[i];
    return *this;
}

TTransTable::TTransTable(int form, TTable table, int languages, bool extended)
    : form_(form),
      stored_(std::move(table)),
      extended_(extended),
      hasStates_(!extended && tml::HasStates(stored_.Type())),
      count_(static_cast<int>(stored_.Entries().size())),
      present_(count_),
      progress_(static_cast<std::size_t>(languages)) {
    for (const TTableEntry& entry : stored_.Entries())
        Tally(&entry, 1);
}

std::string_view TTransTable::Property() const {
    return extended_ ? kExtendedTranslations : KindOf(stored_.Type()).Property;
}

const TTableEntry* TTransTable::Find(int index) const {
    if (!edits_.empty())
        if (const auto edit = edits_.find(index); edit != edits_.end())
            return edit->second ? &*edit->second : nullptr;
    return IsStored(index) ? &stored_.Entries()[static_cast<std::size_t>(index)] : nullptr;
}

int TTransTable::FindKey(std::string_view key) const {
    const int stored = stored_.Find(key);
    if (stored >= 0 && Find(stored) != nullptr) return stored;
    for (const auto& [index, entry] : edits_)
        if (entry && SameText(entry->Key, key)) return index;
    return -1;
}

std::optional<TTableEntry> TTransTable::Put(int index, std::optional<TTableEntry> entry) {
    const TTableEntry* const present = Find(index);
    std::optional<TTableEntry> former;
    if (present != nullptr) former = *present;
    Tally(present, -1);
    Tally(entry ? &*entry : nullptr, 1);
    count_ = std::max(count_, index + 1);
    present_ += (entry ? 1 : 0) - (present == nullptr ? 0 : 1);
    const TTableEntry* const stored =
        IsStored(index) ? &stored_.Entries()[static_cast<std::size_t>(index)] : nullptr;
    const bool isAsStored = entry && stored != nullptr ? entry->Values == stored->Values
                                                       : entry.has_value() == (stored != nullptr);
    if (isAsStored)
        edits_.erase(index);
    else
        edits_[index] = std::move(entry);
    return former;
}

void TTransTable::Rename(int index, const std::string& key) {
    if (IsStored(index))
        stored_.Rekey([&](int entry, const std::string& old) { return entry == index ? key : old; });
    if (const auto edit = edits_.find(index); edit != edits_.end() && edit->second) edit->second->Key = key;
}

TTable TTransTable::Edited() const {
    TTable table = stored_;
    std::vector<bool> gone(table.Entries().size());
    std::vector<int> added;
    for (const auto& [index, entry] : edits_) {
        if (!IsStored(index))
            added.push_back(index);
        else if (entry)
            table.SetValues(index, entry->Values);
        else
            gone[static_cast<std::size_t>(index)] = true;
    }
    table.Remove(gone);
    std::sort(added.begin(), added.end());
    for (const int index : added)
        table.Append(*edits_.at(index));
    return table;
}

void TTransTable::Tally(const TTableEntry* entry, int sign) {
    if (entry == nullptr || !hasStates_) return;
    for (std::size_t i = 0; i < progress_.size(); ++i) {
        const TTextState state = i == 0 ? TTextState::Done : StateOf(*entry, static_cast<int>(i) + 1);
        progress_[i].Texts += sign;
        progress_[i].States[static_cast<std::size_t>(state)] += sign;
    }
}

}  // namespace tml

#include "tables/Table.h"

#include <algorithm>
#include <utility>

#include "base/Utf8.h"
#include "tables/Fieldcodec.h"

namespace tml {
namespace {

/// fields: of the line; what is left of them is nobody's.
TTableEntry EntryOf(std::vector<std::string>& fields) {
    TTableEntry entry{std::move(fields.front()), {}};
    entry.Values.reserve(fields.size() - 1);
    for (auto field = fields.begin() + 1; field != fields.end(); ++field)
        entry.Values.emplace_back().Text = std::move(*field);
    return entry;
}

std::string LineOf(const TTableEntry& entry, std::string_view delimiter) {
    std::vector<std::string_view> fields = {entry.Key};
    for (const TTableValue& value : entry.Values)
        fields.emplace_back(value.Text);
    return JoinFields(fields, delimiter);
}

/// What is on record stays true under another base language, but for what equals the base text on purpose:
/// the former base text does where the present one did.
void FollowBaseLanguage(std::vector<TTableValue>& values, const std::vector<int>& former) {
    const TTableValue base = std::exchange(values.front(), {values.front().Text});
    for (std::size_t i = 1; i < values.size(); ++i) {
        TTableValue& value = values[i];
        const bool isEqual = value.Text == base.Text;
        if (value.Mark == TValueMark::Same && !isEqual) value.Mark = TValueMark::None;
        if (base.Mark == TValueMark::Same && isEqual && former[i] == 1) value.Mark = TValueMark::Same;
    }
}

}  // namespace

std::vector<TTableValue> MovedValues(const std::vector<TTableValue>& values, const std::vector<int>& former,
                                     bool beginEmpty) {
    const auto valueAt = [&](int place, const TTableValue& missing) {
        const bool isThere = place > 0 && place <= static_cast<int>(values.size());
        return isThere ? values[static_cast<std::size_t>(place) - 1] : missing;
    };
    TTableValue base = valueAt(former.front(), valueAt(1, {}));
    // An empty text shows the base text; there is none behind that of the base language.
    if (base.Text.empty() && !beginEmpty) base = valueAt(1, {});
    const TTableValue begin = beginEmpty ? TTableValue() : TTableValue{base.Text};
    std::vector<TTableValue> moved;
    moved.reserve(former.size());
    for (const int place : former)
        moved.push_back(valueAt(place, begin));
    moved.front() = base;
    if (former.front() != 1) FollowBaseLanguage(moved, former);
    return moved;
}

const std::string& TTableEntry::Base() const {
    static const std::string none;
    return Values.empty() ? none : Values.front().Text;
}

TTable::TTable(TStringsType type, TStringList lines, std::string_view delimiter)
    : type_(type), delimiter_(delimiter), stored_(std::move(lines)) {
    entries_.reserve(stored_.Items().size());
    std::vector<std::string> fields;
    for (const std::string& line : stored_) {
        SplitFields(line, delimiter, fields);
        entries_.push_back(EntryOf(fields));
    }
}

TStringList TTable::Lines(std::string_view delimiter) const {
    TStringList lines = stored_;
    for (int i = 0; i < lines.Count(); ++i)
        if (lines[i].empty() || delimiter != delimiter_)
            lines.Set(i, LineOf(entries_[static_cast<std::size_t>(i)], delimiter));
    return lines;
}

int TTable::Find(std::string_view key) const {
    const auto found = Index().find(IndexKey(key));
    return found == Index().end() ? -1 : found->second;
}

bool TTable::Add(const std::string& key, const std::string& text, int languages) {
    if (!Index().emplace(IndexKey(key), static_cast<int>(entries_.size())).second) return false;
    entries_.push_back({key, std::vector<TTableValue>(static_cast<std::size_t>(languages), {text})});
    stored_.Add({});
    return true;
}

void TTable::Rename(const std::function<std::string(const std::string& key)>& newKey) {
    Rekey([&](int, const std::string& key) { return newKey(key); });
}

void TTable::Rekey(const std::function<std::string(int index, const std::string& key)>& newKey) {
    bool isNew = false;
    for (int i = 0; i < stored_.Count(); ++i) {
        const std::string& old = entries_[static_cast<std::size_t>(i)].Key;
        std::string key = newKey(i, old);
        if (key == old) continue;
        Touch(i).Key = std::move(key);
        isNew = true;
    }
    if (isNew) index_.reset();
}

void TTable::SetText(int index, int place, const std::string& text) {
    std::vector<TTableValue>& values = entries_[static_cast<std::size_t>(index)].Values;
    const auto wanted = static_cast<std::size_t>(place);
    if (values.size() >= wanted && values[wanted - 1].Text == text) return;
    if (values.size() < wanted) values.resize(wanted);
    Touch(index).Values[wanted - 1] = {text};
}

void TTable::SetMark(int index, int place, TValueMark mark, const std::string& former) {
    std::vector<TTableValue>& values = entries_[static_cast<std::size_t>(index)].Values;
    if (place < 1 || static_cast<std::size_t>(place) > values.size()) return;
    TTableValue& value = values[static_cast<std::size_t>(place) - 1];
    value.Mark = mark;
    value.Former = former;
}

void TTable::SetValues(int index, const std::vector<TTableValue>& values) {
    std::vector<TTableValue>& present = entries_[static_cast<std::size_t>(index)].Values;
    const bool isSameLine =
        std::equal(present.begin(), present.end(), values.begin(), values.end(),
                   [](const TTableValue& left, const TTableValue& right) { return left.Text == right.Text; });
    (isSameLine ? present : Touch(index).Values) = values;
}

void TTable::Append(TTableEntry entry) {
    if (index_) index_->emplace(IndexKey(entry.Key), static_cast<int>(entries_.size()));
    entries_.push_back(std::move(entry));
    stored_.Add({});
}

void TTable::ClearTranslations() {
    for (int i = 0; i < stored_.Count(); ++i)
        for (int place = static_cast<int>(entries_[static_cast<std::size_t>(i)].Values.size()); place > 1;
             --place) {
            SetText(i, place, {});
            SetMark(i, place, TValueMark::None);
        }
}

void TTable::Remove(const std::vector<bool>& gone) {
    std::vector<TTableEntry> entries;
    TStringList stored;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (gone[i]) continue;
        entries.push_back(std::move(entries_[i]));
        stored.Add(stored_[static_cast<int>(i)]);
    }
    if (entries.size() == entries_.size()) {
        entries_ = std::move(entries);
        return;
    }
    entries_ = std::move(entries);
    stored_ = std::move(stored);
    index_.reset();
}

void TTable::MoveLanguages(const std::vector<int>& former) {
    for (int i = 0; i < stored_.Count(); ++i) {
        const std::vector<TTableValue>& old = entries_[static_cast<std::size_t>(i)].Values;
        std::vector<TTableValue> moved = MovedValues(old, former, type_ == TStringsType::stLocales);
        if (moved != old) Touch(i).Values = std::move(moved);
    }
}

std::string TTable::IndexKey(std::string_view key) const {
    return type_ == TStringsType::stStrings ? UpperCase(key) : std::string(key);
}

TTable::TIndex& TTable::Index() const {
    if (!index_) {
        index_.emplace(entries_.size());
        for (std::size_t i = 0; i < entries_.size(); ++i)
            index_->emplace(IndexKey(entries_[i].Key), static_cast<int>(i));
    }
    return *index_;
}

TTableEntry& TTable::Touch(int index) {
    stored_.Set(index, {});
    return entries_[static_cast<std::size_t>(index)];
}

}  // namespace tml

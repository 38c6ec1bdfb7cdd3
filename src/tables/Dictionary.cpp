#include "tables/Dictionary.h"

#include <algorithm>
#include <iterator>

namespace tml {
namespace {

bool ComesBefore(const TDictionaryEntry& left, const TDictionaryEntry& right) {
    return left.Text(0) < right.Text(0);
}

}  // namespace

const std::string& TDictionaryEntry::Text(int language) const {
    static const std::string kNone;
    const auto index = static_cast<std::size_t>(language);
    return index < Texts.size() ? Texts[index] : kNone;
}

void TDictionaryEntry::SetText(int language, const std::string& text) {
    const auto index = static_cast<std::size_t>(language);
    if (Texts.size() <= index) Texts.resize(index + 1);
    Texts[index] = text;
}

int TDictionary::LanguageOf(std::string_view name) const {
    return Languages.IndexOf(LanguageWithoutTag(name));
}

int TDictionary::NeedLanguage(std::string_view name) {
    const int known = LanguageOf(name);
    if (known >= 0) return known;
    Languages.Add(std::string(LanguageWithoutTag(name)));
    return Languages.Count() - 1;
}

std::size_t TDictionary::PlaceFor(const TDictionaryEntry& entry) const {
    const auto next = std::find_if(Entries.begin(), Entries.end(), [&](const TDictionaryEntry& present) {
        return ComesBefore(entry, present);
    });
    return static_cast<std::size_t>(next - Entries.begin());
}

int TDictionary::Find(int language, const std::string& text) const {
    const auto found = std::find_if(Entries.begin(), Entries.end(), [&](const TDictionaryEntry& entry) {
        return entry.Text(language) == text;
    });
    return found == Entries.end() ? -1 : static_cast<int>(found - Entries.begin());
}

void TDictionary::Merge(std::vector<TDictionaryEntry> entries) {
    std::stable_sort(entries.begin(), entries.end(), ComesBefore);
    std::vector<TDictionaryEntry> merged;
    merged.reserve(Entries.size() + entries.size());
    // By hand: those that are there need not be sorted.
    auto next = entries.begin();
    for (TDictionaryEntry& entry : Entries) {
        for (; next != entries.end() && ComesBefore(*next, entry); ++next)
            merged.push_back(std::move(*next));
        merged.push_back(std::move(entry));
    }
    merged.insert(merged.end(), std::make_move_iterator(next), std::make_move_iterator(entries.end()));
    Entries = std::move(merged);
}

std::string_view LanguageWithoutTag(std::string_view name) {
    constexpr std::string_view kTag = "</LANGUAGE>";
    return name.ends_with(kTag) ? name.substr(0, name.size() - kTag.size()) : name;
}

}  // namespace tml

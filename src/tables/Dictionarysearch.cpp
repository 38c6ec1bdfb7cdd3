#include "tables/Dictionarysearch.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "tables/Accelerators.h"

namespace tml {
namespace {

/// Which line breaks a text has is the business of the form.
std::string WithPlainBreaks(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != '\r')
            plain += text[i];
        else if (i + 1 == text.size() || text[i + 1] != '\n')
            plain += '\n';
    return plain;
}

}  // namespace

TDictionarySearch::TDictionarySearch(const TDictionary& dictionary, int base, int language,
                                     const TDictionaryOptions& options)
    : base_(base), language_(language), options_(options) {
    levels_.push_back({});
    if (options.SkipAmpersands) levels_.push_back({.SkipsAmpersands = true});
    if (options.IgnoreCase) levels_.push_back({.IgnoresCase = true});
    if (options.SkipAmpersands && options.IgnoreCase)
        levels_.push_back({.SkipsAmpersands = true, .IgnoresCase = true});
    for (const TDictionaryEntry& entry : dictionary.Entries) {
        if (entry.Text(base).empty() || entry.Text(language).empty()) continue;
        for (TLevel& level : levels_)
            level.Entries.emplace(KeyOf(level, entry.Text(base)), &entry);
    }
}

std::string TDictionarySearch::KeyOf(const TLevel& level, const std::string& text) {
    const std::string key = WithPlainBreaks(level.SkipsAmpersands ? WithoutAccelerator(text) : text);
    return level.IgnoresCase ? FoldCase(key) : key;
}

std::optional<TDictionaryHit> TDictionarySearch::Find(const std::string& text) const {
    if (text.empty()) return std::nullopt;
    const auto hit = FindWhole(text);
    const bool isOneLine = text.find_first_of("\r\n") == std::string::npos;
    return hit || !options_.ParseMultilines || isOneLine ? hit : FindLines(text);
}

std::optional<TDictionaryHit> TDictionarySearch::FindWhole(const std::string& text) const {
    for (const TLevel& level : levels_) {
        const auto found = level.Entries.find(KeyOf(level, text));
        if (found == level.Entries.end()) continue;
        const std::string& translation = found->second->Text(language_);
        return TDictionaryHit{level.SkipsAmpersands ? WithAcceleratorOf(text, translation) : translation,
                              found->second->Text(base_)};
    }
    return std::nullopt;
}

/// Line breaks and lines without a text stay as they are.
std::optional<TDictionaryHit> TDictionarySearch::FindLines(const std::string& text) const {
    TDictionaryHit whole;
    bool hasFound = false;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find_first_of("\r\n", begin), text.size());
        const std::size_t next = std::min(text.find_first_not_of("\r\n", end), text.size());
        const std::string line = text.substr(begin, end - begin);
        const std::string breaks = text.substr(end, next - end);
        const bool isBlank = Trim(line).empty();
        const auto hit = isBlank ? TDictionaryHit{line, line} : FindWhole(line);
        if (!hit) return std::nullopt;
        hasFound = hasFound || !isBlank;
        whole.Text += hit->Text + breaks;
        whole.Found += hit->Found + breaks;
        begin = next;
    }
    return hasFound ? std::optional(whole) : std::nullopt;
}

const TDictionarySearch& TDictionarySearches::Between(const std::string& base, const std::string& language) {
    const std::pair key{Expect(base), Expect(language)};
    const auto known = searches_.find(key);
    if (known != searches_.end()) return known->second;
    return searches_.emplace(key, TDictionarySearch(dictionary_, key.first, key.second, options_))
        .first->second;
}

int TDictionarySearches::Expect(const std::string& language) const {
    const int index = dictionary_.LanguageOf(language);
    if (index >= 0) return index;
    throw EBadInput(fileName_, 0, "the dictionary has no language " + language,
                    "It has " + dictionary_.Languages.CommaText());
}

}  // namespace tml

#include "runtime/Transfilter.h"

#include <algorithm>

#include "base/Utf8.h"

namespace tml {

bool IsIn(const TTransTable& table, const TTransScope& scope, int index) {
    return (scope.Form < 0 || table.Form() == scope.Form) && (scope.Table < 0 || scope.Table == index);
}

TTransSieve::TTransSieve(const TTransFilter& filter, const TTransTexts& texts, ICommonLibrary* library)
    : filter_(filter),
      texts_(texts),
      library_(library),
      sought_(filter.IsPattern ? "(?s:.*?)(?i:" + filter.Text + ")(?s:.*)" : FoldCase(filter.Text)) {
    const auto& languages = texts.Languages();
    for (std::size_t i = 0; i < languages.size(); ++i)
        if (filter.Language.empty() || SameText(languages[i].Name, filter.Language))
            columns_.push_back(static_cast<int>(i) + 1);
    if (!filter.IsPattern || filter.Text.empty()) return;
    // A pattern that took too long is given up for a scan; this is a new one.
    if (library != nullptr) library->InitInternalPasSource("");
    isBroken_ = CannotRead(filter.Text) || CannotRead(sought_);
}

bool TTransSieve::CannotRead(const std::string& pattern) const {
    return library_ == nullptr || !library_->mlREStringMatches("", "|" + pattern);
}

bool TTransSieve::Passes(TTransRow row, bool withForm) const {
    if (!IsShown(row)) return false;
    if (filter_.Text.empty()) return true;
    for (int column = 0; column <= static_cast<int>(texts_.Languages().size()); ++column)
        if (const std::string& text = texts_.Text(row, column); !text.empty() && Holds(text)) return true;
    return withForm && Holds(texts_.FormOf(row).Name + "  " + texts_.Text(row, 0));
}

bool TTransSieve::IsShown(TTransRow row) const {
    return filter_.Show == TTransShow::All ||
           std::any_of(columns_.begin(), columns_.end(), [&](int column) { return IsShown(row, column); });
}

bool TTransSieve::IsShown(TTransRow row, int column) const {
    const auto state = texts_.State(row, column);
    if (!state) return false;
    if (filter_.Show == TTransShow::Missing) return *state == TTextState::Missing;
    if (filter_.Show == TTransShow::Stale)
        return *state == TTextState::Stale || *state == TTextState::Touched;
    const std::string& text = texts_.Text(row, column);
    return !text.empty() && text == texts_.Find(row)->Base();
}

bool TTransSieve::Holds(const std::string& text) const {
    if (!filter_.IsPattern) return FoldCase(text).find(sought_) != std::string::npos;
    return !isBroken_ && library_->mlREStringMatches(text, sought_);
}

std::vector<TTransRow> FilteredRows(const TTransTexts& texts, const TTransScope& scope,
                                    const TTransSieve& sieve, const TTransWalk::TGoesOn& goesOn) {
    const auto& tables = texts.Tables();
    int all = 0;
    for (int i = 0; i < static_cast<int>(tables.size()); ++i)
        if (IsIn(tables[static_cast<std::size_t>(i)], scope, i))
            all += tables[static_cast<std::size_t>(i)].Count();
    TTransWalk walk(all, goesOn);
    std::vector<TTransRow> rows;
    for (int i = 0; i < static_cast<int>(tables.size()); ++i) {
        const TTransTable& table = tables[static_cast<std::size_t>(i)];
        for (int entry = 0; IsIn(table, scope, i) && entry < table.Count(); ++entry) {
            if (!walk.GoesOn()) return rows;
            if (table.Find(entry) != nullptr && sieve.Passes({i, entry}, scope.Form < 0))
                rows.push_back({i, entry});
        }
    }
    return rows;
}

}  // namespace tml

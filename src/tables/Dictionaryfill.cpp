#include "tables/Dictionaryfill.h"

#include <algorithm>
#include <functional>

#include "base/Format.h"
#include "tables/States.h"
#include "tables/Textedits.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

const TTableValue& ValueAt(const TTableEntry& entry, int place) {
    static const TTableValue kNone;
    const auto index = static_cast<std::size_t>(place) - 1;
    return index < entry.Values.size() ? entry.Values[index] : kNone;
}

TTableValue ValueOf(const TTableEntry& entry, const TDictionaryHit& hit) {
    const std::string& base = entry.Base();
    const std::string text = WithLineBreaksOf(entry, hit.Text);
    const std::string found = WithLineBreaksOf(entry, hit.Found);
    if (found != base) return {text, TValueMark::Touched, found};
    return {text, text == base ? TValueMark::Same : TValueMark::None};
}

}  // namespace

TDictionaryCounts& TDictionaryCounts::operator+=(const TDictionaryCounts& other) {
    std::transform(Outcomes.begin(), Outcomes.end(), other.Outcomes.begin(), Outcomes.begin(), std::plus<>());
    return *this;
}

std::string TextOfOthers(const TDictionaryCounts& counts) {
    using enum TDictionaryOutcome;
    return Format("Not in the dictionary: %d. Translated already: %d. Left empty: %d", counts[Unknown],
                  counts[Existing], counts[Empty]);
}

TDictionaryOutcome FilledValue(const TTableEntry& entry, int place, const TDictionarySearch& search,
                               TTableValue& value) {
    using enum TDictionaryOutcome;
    const TTableValue& old = ValueAt(entry, place);
    const bool isMissing = StateOf(entry, place) == TTextState::Missing;
    if (!isMissing && !search.Options().OverwriteExisting) return Existing;
    const auto hit = search.Find(entry.Base());
    if (!hit) return Unknown;
    if (old.Text.empty() && !search.Options().ForceEmpties) return Empty;
    value = ValueOf(entry, *hit);
    return value == old ? Existing : Filled;
}

std::vector<TDictionaryFill> PlanFill(const std::vector<TTable>& tables, int place,
                                      const TDictionarySearch& search, TDictionaryCounts& counts) {
    std::vector<TDictionaryFill> fills;
    for (const TTable& table : tables) {
        if (!HasStates(table.Type())) continue;
        int index = -1;
        for (const TTableEntry& entry : table.Entries()) {
            ++index;
            if (entry.Base().empty()) continue;
            TTableValue value;
            const TDictionaryOutcome outcome = FilledValue(entry, place, search, value);
            ++counts[outcome];
            if (outcome == TDictionaryOutcome::Filled)
                fills.push_back({table.Type(), index, entry.Key, entry.Base(), ValueAt(entry, place), value});
        }
    }
    return fills;
}

void FillTables(std::vector<TTable>& tables, int place, const std::vector<TDictionaryFill>& fills) {
    for (const TDictionaryFill& fill : fills) {
        TTable& table = tables[static_cast<std::size_t>(fill.Table)];
        table.SetText(fill.Entry, place, fill.New.Text);
        table.SetMark(fill.Entry, place, fill.New.Mark, fill.New.Former);
    }
}

}  // namespace tml

#include "tables/Dictionarylearning.h"

#include <algorithm>
#include <initializer_list>
#include <numeric>

#include "base/Utf8.h"
#include "tables/States.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

/// A key of several texts that no other texts have.
std::string KeyOf(std::initializer_list<std::string_view> texts) {
    std::string key;
    for (const std::string_view text : texts)
        key.append(std::to_string(text.size())).append(1, ':').append(text);
    return key;
}

void Count(std::vector<TLearnedChoice>& choices, const std::string& text) {
    const auto found = std::find_if(choices.begin(), choices.end(),
                                    [&](const TLearnedChoice& choice) { return choice.Text == text; });
    if (found == choices.end())
        choices.push_back({text, 1});
    else
        ++found->Count;
}

int CountOf(const TLearnConflict& conflict) {
    return std::accumulate(conflict.Choices.begin(), conflict.Choices.end(), 0,
                           [](int sum, const TLearnedChoice& choice) { return sum + choice.Count; });
}

/// A dictionary while it learns: new entries are put in their places in the end.
class TLearner {
  public:
    TLearner(TDictionary& dictionary, bool replaces) : dictionary_(dictionary), replaces_(replaces) {}

    void Learn(const std::string& baseLanguage, const std::string& language, const std::string& base,
               std::vector<TLearnedChoice> choices) {
        std::stable_sort(choices.begin(), choices.end(),
                         [](const auto& left, const auto& right) { return left.Count > right.Count; });
        const int from = dictionary_.NeedLanguage(baseLanguage);
        const int to = dictionary_.NeedLanguage(language);
        const std::string taken = Put(EntryOf(from, to, base), to, choices.front().Text);
        if (choices.size() > 1 || taken != choices.front().Text)
            learned_.Conflicts.push_back({language, base, taken, std::move(choices)});
    }

    TLearned Finish() {
        dictionary_.Merge(std::move(added_));
        std::stable_sort(learned_.Conflicts.begin(), learned_.Conflicts.end(),
                         [](const auto& left, const auto& right) { return CountOf(left) > CountOf(right); });
        return std::move(learned_);
    }

  private:
    /// Entries by their texts in a base language; those of several come in their order.
    using TIndex = std::unordered_multimap<std::string, std::size_t>;

    TIndex& IndexOf(int language) {
        const auto [found, isNew] = indexes_.try_emplace(language);
        if (isNew)
            for (std::size_t i = dictionary_.Entries.size(); i-- > 0;)
                if (const std::string& text = dictionary_.Entries[i].Text(language); !text.empty())
                    found->second.emplace(text, i);
        return found->second;
    }

    TDictionaryEntry& At(std::size_t index) {
        const std::size_t old = dictionary_.Entries.size();
        return index < old ? dictionary_.Entries[index] : added_[index - old];
    }

    /// The first entry with the base text that has a translation, else the first one, else a new one.
    TDictionaryEntry& EntryOf(int from, int to, const std::string& base) {
        TIndex& index = IndexOf(from);
        const auto [begin, end] = index.equal_range(base);
        constexpr auto kNone = static_cast<std::size_t>(-1);
        std::size_t first = kNone;
        std::size_t translated = kNone;
        for (auto found = begin; found != end; ++found) {
            first = std::min(first, found->second);
            if (!At(found->second).Text(to).empty()) translated = std::min(translated, found->second);
        }
        if (translated != kNone) return At(translated);
        if (first != kNone) return At(first);
        index.emplace(base, dictionary_.Entries.size() + added_.size());
        added_.emplace_back().SetText(from, base);
        ++learned_.Entries;
        return added_.back();
    }

    /// Gives what the entry has now.
    std::string Put(TDictionaryEntry& entry, int language, const std::string& text) {
        const std::string present = entry.Text(language);
        if (present == text) {
            ++learned_.Known;
        } else if (present.empty() || replaces_) {
            ++(present.empty() ? learned_.Added : learned_.Replaced);
            entry.SetText(language, text);
        }
        return entry.Text(language);
    }

    TDictionary& dictionary_;
    bool replaces_;
    TLearned learned_;
    std::vector<TDictionaryEntry> added_;
    std::unordered_map<int, TIndex> indexes_;
};

}  // namespace

void TDictionaryLearning::Take(const std::vector<TTable>& tables, int place, const std::string& baseLanguage,
                               const std::string& language) {
    if (SameText(baseLanguage, language)) return;
    for (const TTable& table : tables) {
        if (!HasStates(table.Type())) continue;
        for (const TTableEntry& entry : table.Entries()) {
            if (entry.Base().empty() || StateOf(entry, place) != TTextState::Done) continue;
            const auto [found, isNew] =
                index_.try_emplace(KeyOf({baseLanguage, language, entry.Base()}), pairs_.size());
            if (isNew) pairs_.push_back({baseLanguage, language, entry.Base(), {}});
            Count(pairs_[found->second].Choices, entry.Values[static_cast<std::size_t>(place) - 1].Text);
        }
    }
}

TLearned TDictionaryLearning::Into(TDictionary& dictionary, bool replaces) const {
    TLearner learner(dictionary, replaces);
    for (const TPair& pair : pairs_)
        learner.Learn(pair.BaseLanguage, pair.Language, pair.Base, pair.Choices);
    return learner.Finish();
}

}  // namespace tml

#include "tables/Dictionarysteps.h"

namespace tml {
namespace {

/// True for an entry that has what the other one has, and perhaps more.
bool Has(const TDictionaryEntry& entry, const TDictionaryEntry& other) {
    for (std::size_t i = 0; i < other.Texts.size(); ++i)
        if (!other.Texts[i].empty() && other.Texts[i] != entry.Text(static_cast<int>(i))) return false;
    return true;
}

}  // namespace

TDictionaryStep TakeStep(TDictionary& dictionary, TDictionaryStep step) {
    TDictionaryStep back{dictionary.Languages, {}, {}};
    std::vector<TDictionaryEntry> entries;
    entries.reserve(dictionary.Entries.size() + step.Come.size() - step.Gone.size());
    auto come = step.Come.begin();
    const auto putDue = [&] {
        for (; come != step.Come.end() && come->first == entries.size(); ++come) {
            back.Gone.push_back(entries.size());
            entries.push_back(std::move(come->second));
        }
    };
    auto gone = step.Gone.begin();
    for (std::size_t i = 0; i < dictionary.Entries.size(); ++i) {
        TDictionaryEntry& entry = dictionary.Entries[i];
        if (gone != step.Gone.end() && *gone == i) {
            back.Come.emplace_back(i, std::move(entry));
            ++gone;
            continue;
        }
        putDue();
        entries.push_back(std::move(entry));
    }
    putDue();
    dictionary.Entries = std::move(entries);
    dictionary.Languages = std::move(step.Languages);
    return back;
}

TDictionaryStep StepBack(const TDictionary& dictionary, const TDictionary& before) {
    TDictionaryStep step{before.Languages, {}, {}};
    const std::vector<TDictionaryEntry>& former = before.Entries;
    std::size_t next = 0;
    for (std::size_t i = 0; i < dictionary.Entries.size(); ++i) {
        const TDictionaryEntry& entry = dictionary.Entries[i];
        const bool isFormer = next < former.size() && Has(entry, former[next]);
        if (!isFormer || entry != former[next]) step.Gone.push_back(i);
        if (isFormer && entry != former[next]) step.Come.emplace_back(next, former[next]);
        next += isFormer ? 1 : 0;
    }
    for (; next < former.size(); ++next)
        step.Come.emplace_back(next, former[next]);
    return step;
}

void TDictionaryHistory::Note(TDictionaryStep back) {
    if (saved_ > done_.size()) isSavedThere_ = false;
    undone_.clear();
    done_.push_back(std::move(back));
    EndTyping();
}

void TDictionaryHistory::NoteTyping(const TDictionary& dictionary, int entry, int language) {
    const auto typed = std::pair(entry, language);
    if (typed == typed_) return;
    const auto place = static_cast<std::size_t>(entry);
    Note({dictionary.Languages, {place}, {{place, dictionary.Entries[place]}}});
    typed_ = typed;
}

std::vector<int> TDictionaryHistory::Swap(TDictionary& dictionary, TSteps& from, TSteps& to) {
    if (from.empty()) return {};
    TDictionaryStep step = std::move(from.back());
    from.pop_back();
    std::vector<int> come;
    for (const auto& entry : step.Come)
        come.push_back(static_cast<int>(entry.first));
    to.push_back(TakeStep(dictionary, std::move(step)));
    EndTyping();
    return come;
}

void TDictionaryHistory::NoteSaved() {
    saved_ = done_.size();
    isSavedThere_ = true;
    EndTyping();
}

}  // namespace tml

#include "tables/Textmerge.h"

#include <algorithm>
#include <deque>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "base/Utf8.h"
#include "tables/Fontvalue.h"
#include "tables/Itemmatch.h"
#include "tables/States.h"

namespace tml {
namespace {

constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

/// Without texts of the form.
bool IsFree(TStringsType type) {
    return type == TStringsType::stStrings || type == TStringsType::stLocales;
}

/// The base text is another one now: what translated the former one is in doubt.
void FollowBase(TTable& table, int index, const std::string& text) {
    const TTableEntry former = table.Entries()[static_cast<std::size_t>(index)];
    table.SetText(index, 1, text);
    for (int place = 2; place <= static_cast<int>(former.Values.size()); ++place) {
        const TTableValue value = WithNewBase(former.Values[static_cast<std::size_t>(place) - 1],
                                              former.Base(), text, HasStates(table.Type()));
        table.SetText(index, place, value.Text);
        table.SetMark(index, place, value.Mark, value.Former);
    }
}

/// What a language does not say of a font the base language does.
std::string ShownFont(const TTableEntry& entry, int place) {
    return TFontValue::FromText(ShownText(entry, place)).Over(TFontValue::FromText(entry.Base())).Text();
}

void Follow(TTable& table, int index, const std::string& text, int active) {
    const TTableEntry& entry = table.Entries()[static_cast<std::size_t>(index)];
    if (ShownText(entry, active) == text) return;
    if (table.Type() == TStringsType::stFonts && ShownFont(entry, active) == text) return;
    if (active == 1)
        FollowBase(table, index, text);
    else if (text != entry.Base())
        table.SetText(index, active, text);
}

std::size_t IndexOf(TStringsType type, const std::vector<TTable>& tables) {
    const auto found =
        std::find_if(tables.begin(), tables.end(), [&](const TTable& table) { return table.Type() == type; });
    return static_cast<std::size_t>(found - tables.begin());
}

/// A key that stands twice counts once; a line without a property is nobody's.
bool Counts(const TTable& table, int index) {
    const std::string& key = table.Entries()[static_cast<std::size_t>(index)].Key;
    return key.find('.') != std::string::npos && table.Find(key) == index;
}

/// Where the entry of a key is; most stand in the order of the form, so that the next one is looked at first.
int IndexOfKey(const TTable& table, const std::string& key, std::size_t next) {
    const auto& entries = table.Entries();
    return next < entries.size() && entries[next].Key == key ? static_cast<int>(next) : table.Find(key);
}

/// True where every entry has its one text and every text that enters its entry, as it is shown: such a merge
/// would change nothing, and most are such.
bool AreUpToDate(const std::vector<TTable>& tables, const std::vector<TFormText>& texts, int active) {
    std::vector<std::vector<bool>> met;
    met.reserve(tables.size());
    for (const TTable& table : tables)
        met.emplace_back(table.Entries().size(), false);
    std::vector<std::size_t> next(tables.size());
    for (const TFormText& text : texts) {
        const std::size_t table = IndexOf(text.Table, tables);
        const int index = IndexOfKey(tables[table], text.Key, next[table]);
        // A text that does not enter says something of the items around it.
        if (index < 0 && !text.Enters && text.Key.find('[') == std::string::npos) continue;
        const auto entry = static_cast<std::size_t>(index);
        if (index < 0 || met[table][entry] || ShownText(tables[table].Entries()[entry], active) != text.Text)
            return false;
        met[table][entry] = true;
        next[table] = entry + 1;
    }
    for (std::size_t table = 0; table < tables.size(); ++table)
        for (std::size_t i = 0; i < met[table].size(); ++i)
            if (!IsFree(tables[table].Type()) && !met[table][i] && Counts(tables[table], static_cast<int>(i)))
                return false;
    return true;
}

/// One merge. An entry of the tables is known by its table and its index there.
class TMerge {
  public:
    TMerge(std::vector<TTable>& tables, const std::vector<TFormText>& texts, const TMergeSettings& settings)
        : tables_(tables), texts_(texts), settings_(settings), former_(texts.size(), kNowhere) {}

    void Run() {
        ListEntries();
        FollowItems();
        MatchByKey();
        MatchByText();
        Write();
    }

  private:
    struct TEntry {
        std::size_t Table;
        int Index;
        std::string Key;              ///< in the present form; "" where its item is gone
        std::size_t Text = kNowhere;  ///< what it follows
    };

    const TTableEntry& At(const TEntry& entry) const {
        return tables_[entry.Table].Entries()[static_cast<std::size_t>(entry.Index)];
    }
    TStringsType TypeOf(const TEntry& entry) const { return tables_[entry.Table].Type(); }
    const std::string& Shown(const TEntry& entry) const { return ShownText(At(entry), settings_.Active); }

    void ListEntries() {
        for (std::size_t table = 0; table < tables_.size(); ++table) {
            if (IsFree(tables_[table].Type())) continue;
            const auto& entries = tables_[table].Entries();
            for (int i = 0; i < static_cast<int>(entries.size()); ++i) {
                if (Counts(tables_[table], i))
                    entries_.push_back({table, i, entries[static_cast<std::size_t>(i)].Key});
            }
        }
    }

    void FollowItems() {
        std::vector<TKeyedText> former;
        std::vector<TKeyedText> present;
        for (const TEntry& entry : entries_)
            former.push_back({entry.Key, Shown(entry), HasStates(tables_[entry.Table].Type())});
        for (const TFormText& text : texts_)
            present.push_back({text.Key, text.Text, HasStates(text.Table)});
        std::vector<std::string> keys = MatchItems(former, present);
        for (std::size_t i = 0; i < entries_.size(); ++i)
            entries_[i].Key = std::move(keys[i]);
    }

    /// In the same table, else in another one, where the data on texts has moved the property.
    void MatchByKey() {
        std::unordered_map<std::string, std::vector<std::size_t>> byKey;
        for (std::size_t i = 0; i < entries_.size(); ++i)
            if (!entries_[i].Key.empty()) byKey[UpperCase(entries_[i].Key)].push_back(i);
        for (const bool sameTable : {true, false})
            for (std::size_t i = 0; i < texts_.size(); ++i) {
                const auto found = byKey.find(UpperCase(texts_[i].Key));
                if (former_[i] != kNowhere || found == byKey.end()) continue;
                const auto fits = [&](std::size_t entry) {
                    return entries_[entry].Text == kNowhere &&
                           (!sameTable || TypeOf(entries_[entry]) == texts_[i].Table);
                };
                const auto entry = std::find_if(found->second.begin(), found->second.end(), fits);
                if (entry != found->second.end()) Pair(*entry, i);
            }
    }

    /// What is new with the property and the text of an entry that is gone is its component, renamed.
    void MatchByText() {
        std::unordered_map<std::string, std::deque<std::size_t>> gone;
        for (std::size_t i = 0; i < entries_.size(); ++i)
            if (entries_[i].Text == kNowhere && HasStates(tables_[entries_[i].Table].Type()) &&
                !Stays(entries_[i]))
                gone[Trace(At(entries_[i]).Key, Shown(entries_[i]))].push_back(i);
        for (std::size_t i = 0; i < texts_.size() && !gone.empty(); ++i) {
            if (former_[i] != kNowhere || !HasStates(texts_[i].Table)) continue;
            const auto found = gone.find(Trace(texts_[i].Key, texts_[i].Text));
            if (found == gone.end() || found->second.empty()) continue;
            Pair(found->second.front(), i);
            found->second.pop_front();
        }
    }

    static std::string Trace(const std::string& key, const std::string& text) {
        return UpperCase(key.substr(key.rfind('.'))) + '\x1f' + text;
    }

    bool Stays(const TEntry& entry) const { return settings_.Stays(At(entry).Key, entry.Key.empty()); }

    void Pair(std::size_t entry, std::size_t text) {
        entries_[entry].Text = text;
        former_[text] = entry;
    }

    /// Ignored removals leave the entry of a renamed component where it is.
    bool IsCopied(const TEntry& entry) const {
        return settings_.IgnoreRemovals && !SameText(entry.Key, texts_[entry.Text].Key);
    }
    bool IsInPlace(const TEntry& entry) const {
        return entry.Text != kNowhere && !IsCopied(entry) && TypeOf(entry) == texts_[entry.Text].Table;
    }
    /// A key that another text has now cannot stay for what is gone.
    bool Goes(const TEntry& entry) const {
        if (entry.Text != kNowhere) return !IsInPlace(entry) && !IsCopied(entry);
        const std::string& key = At(entry).Key;
        return (!settings_.IgnoreRemovals && !Stays(entry)) || taken_.count(UpperCase(key)) > 0;
    }

    void Write() {
        for (const TFormText& text : texts_)
            taken_.insert(UpperCase(text.Key));
        for (std::size_t i = 0; i < texts_.size(); ++i)
            if (former_[i] != kNowhere && !IsInPlace(entries_[former_[i]]))
                elsewhere_.emplace(i, At(entries_[former_[i]]));
        RemoveGone();
        FollowInPlace();
        AppendNew();
    }

    void RemoveGone() {
        std::vector<std::vector<bool>> gone;
        for (const TTable& table : tables_)
            gone.emplace_back(table.Entries().size(), false);
        for (const TEntry& entry : entries_)
            gone[entry.Table][static_cast<std::size_t>(entry.Index)] = Goes(entry);
        Shift(gone);
        for (std::size_t table = 0; table < tables_.size(); ++table)
            tables_[table].Remove(gone[table]);
    }

    /// Entries move up by those in front of them that are gone.
    void Shift(const std::vector<std::vector<bool>>& gone) {
        std::vector<std::vector<int>> index(gone.size());
        for (std::size_t table = 0; table < gone.size(); ++table) {
            int next = 0;
            for (const bool isGone : gone[table])
                index[table].push_back(isGone ? next : next++);
        }
        for (TEntry& entry : entries_)
            entry.Index = index[entry.Table][static_cast<std::size_t>(entry.Index)];
    }

    void FollowInPlace() {
        std::vector<std::unordered_map<int, const TFormText*>> followed(tables_.size());
        for (const TEntry& entry : entries_)
            if (IsInPlace(entry)) followed[entry.Table].emplace(entry.Index, &texts_[entry.Text]);
        for (std::size_t table = 0; table < tables_.size(); ++table) {
            tables_[table].Rekey([&](int index, const std::string& key) {
                const auto found = followed[table].find(index);
                const bool keeps = found == followed[table].end() || SameText(key, found->second->Key);
                return keeps ? key : found->second->Key;
            });
            for (const auto& [index, text] : followed[table])
                Follow(tables_[table], index, text->Text, settings_.Active);
        }
    }

    void AppendNew() {
        for (std::size_t i = 0; i < texts_.size(); ++i) {
            const TFormText& text = texts_[i];
            TTable& table = tables_[IndexOf(text.Table, tables_)];
            if (former_[i] == kNowhere && text.Enters) table.Add(text.Key, text.Text, settings_.Languages);
            const auto moved = elsewhere_.find(i);
            if (moved == elsewhere_.end()) continue;
            moved->second.Key = text.Key;
            table.Append(std::move(moved->second));
            Follow(table, static_cast<int>(table.Entries().size()) - 1, text.Text, settings_.Active);
        }
    }

    std::vector<TTable>& tables_;
    const std::vector<TFormText>& texts_;
    const TMergeSettings& settings_;
    std::vector<TEntry> entries_;
    std::vector<std::size_t> former_;                         ///< the entry of each text
    std::unordered_set<std::string> taken_;                   ///< keys of the texts, upper-cased
    std::unordered_map<std::size_t, TTableEntry> elsewhere_;  ///< of texts that are now in another place
};

}  // namespace

const std::string& ShownText(const TTableEntry& entry, int place) {
    const auto index = static_cast<std::size_t>(place) - 1;
    const bool isThere = index < entry.Values.size() && !entry.Values[index].Text.empty();
    return isThere ? entry.Values[index].Text : entry.Base();
}

bool HasStates(TStringsType type) {
    return type != TStringsType::stFonts && type != TStringsType::stCharSets &&
           type != TStringsType::stLocales;
}

void MergeTexts(std::vector<TTable>& tables, const std::vector<TFormText>& texts,
                const TMergeSettings& settings) {
    if (!AreUpToDate(tables, texts, settings.Active)) TMerge(tables, texts, settings).Run();
}

}  // namespace tml

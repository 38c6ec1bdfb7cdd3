// Level by level: at each the items in the first, second ... pair of brackets are matched within what the
// pairs before it have been matched to.
#include "tables/Itemmatch.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <unordered_map>
#include <utility>

#include "base/Utf8.h"

namespace tml {
namespace {

constexpr std::size_t kNoMatch = static_cast<std::size_t>(-1);

/// A key cut at one of its pairs of brackets.
struct TCut {
    std::string_view Prefix;  ///< in front of the pair
    std::string_view Token;   ///< within
    std::string_view Tail;    ///< behind
};

std::optional<TCut> CutAt(std::string_view key, int level) {
    std::size_t open = key.find('[');
    for (int i = 0; i < level && open != std::string_view::npos; ++i)
        open = key.find('[', open + 1);
    const std::size_t close = open == std::string_view::npos ? open : key.find(']', open);
    if (close == std::string_view::npos) return std::nullopt;
    return TCut{key.substr(0, open), key.substr(open + 1, close - open - 1), key.substr(close + 1)};
}

bool IsNameToken(std::string_view token) {
    return !token.empty() && (token.front() < '0' || token.front() > '9');
}

struct TItem {
    std::string Token;
    std::vector<std::string> Texts;  ///< each with the rest of its key in front
    std::string Signature;           ///< all of them
    std::size_t Match = kNoMatch;    ///< on the other side

    void Finish() {
        std::sort(Texts.begin(), Texts.end());
        for (const std::string& text : Texts)
            Signature += text + '\x1e';
    }
    /// Items of a name stand behind those with an index.
    bool operator<(const TItem& other) const {
        if (IsNameToken(Token) || IsNameToken(other.Token))
            return !IsNameToken(Token) && IsNameToken(other.Token);
        return Token.size() != other.Token.size() ? Token.size() < other.Token.size() : Token < other.Token;
    }
};

/// The items of one collection.
struct TSide {
    std::vector<TItem> Items;
    std::unordered_map<std::string, std::size_t> ByToken;  ///< upper-cased

    void Add(const TCut& cut, const TKeyedText& text) {
        const auto [place, isNew] = ByToken.emplace(UpperCase(cut.Token), Items.size());
        if (isNew) Items.push_back({std::string(cut.Token), {}, {}, kNoMatch});
        if (text.Tells)
            Items[place->second].Texts.push_back(UpperCase(cut.Tail) + '\x1f' + std::string(text.Text));
    }
    /// A table has its entries in any order.
    void Finish() {
        std::stable_sort(Items.begin(), Items.end());
        for (std::size_t i = 0; i < Items.size(); ++i) {
            ByToken[UpperCase(Items[i].Token)] = i;
            Items[i].Finish();
        }
    }
};

struct TCollection {
    TSide Former;
    TSide Present;

    void Match() {
        Former.Finish();
        Present.Finish();
        ByToken(true);
        FromBothEnds();
        BySignature();
        BySharedText();
        ByToken(false);
    }

  private:
    void Pair(std::size_t former, std::size_t present) {
        Former.Items[former].Match = present;
        Present.Items[present].Match = former;
    }

    void ByToken(bool names) {
        for (std::size_t i = 0; i < Former.Items.size(); ++i) {
            const TItem& item = Former.Items[i];
            if (item.Match != kNoMatch || IsNameToken(item.Token) != names) continue;
            const auto found = Present.ByToken.find(UpperCase(item.Token));
            if (found != Present.ByToken.end() && Present.Items[found->second].Match == kNoMatch)
                Pair(i, found->second);
        }
    }

    bool IsSame(const TItem& former, const TItem& present) const {
        const bool isOpen = former.Match == kNoMatch && present.Match == kNoMatch;
        return isOpen && !former.Texts.empty() && former.Signature == present.Signature;
    }

    /// What nobody has touched stays with its own, also where texts are equal.
    void FromBothEnds() {
        std::size_t first = 0;
        std::size_t former = Former.Items.size();
        std::size_t present = Present.Items.size();
        for (; first < std::min(former, present) && IsSame(Former.Items[first], Present.Items[first]);
             ++first)
            Pair(first, first);
        while (former > first && present > first &&
               IsSame(Former.Items[former - 1], Present.Items[present - 1]))
            Pair(--former, --present);
    }

    /// Items that wait for a partner, by something that both have; the first first.
    using TWaiting = std::unordered_map<std::string, std::deque<std::size_t>>;

    std::size_t TakeFrom(TWaiting& waiting, const std::string& what) {
        const auto found = waiting.find(what);
        if (found == waiting.end()) return kNoMatch;
        std::deque<std::size_t>& queue = found->second;
        while (!queue.empty() && Present.Items[queue.front()].Match != kNoMatch)
            queue.pop_front();
        return queue.empty() ? kNoMatch : queue.front();
    }

    void BySignature() {
        TWaiting waiting;
        for (std::size_t i = 0; i < Present.Items.size(); ++i)
            if (Present.Items[i].Match == kNoMatch && !Present.Items[i].Texts.empty())
                waiting[Present.Items[i].Signature].push_back(i);
        for (std::size_t i = 0; i < Former.Items.size(); ++i) {
            if (Former.Items[i].Match != kNoMatch) continue;
            const std::size_t found = TakeFrom(waiting, Former.Items[i].Signature);
            if (found != kNoMatch) Pair(i, found);
        }
    }

    void BySharedText() {
        TWaiting waiting;
        for (std::size_t i = 0; i < Present.Items.size(); ++i)
            if (Present.Items[i].Match == kNoMatch)
                for (const std::string& text : Present.Items[i].Texts)
                    waiting[text].push_back(i);
        for (std::size_t i = 0; i < Former.Items.size(); ++i)
            for (const std::string& text : Former.Items[i].Texts) {
                if (Former.Items[i].Match != kNoMatch) break;
                const std::size_t found = TakeFrom(waiting, text);
                if (found != kNoMatch) Pair(i, found);
            }
    }
};

using TCollections = std::unordered_map<std::string, TCollection>;

/// Adds what the keys have at the level; false where none has anything.
bool Collect(const std::vector<std::string>& keys, const std::vector<TKeyedText>& texts, int level,
             TSide TCollection::*side, TCollections& collections) {
    bool found = false;
    for (std::size_t i = 0; i < keys.size(); ++i)
        if (const auto cut = CutAt(keys[i], level)) {
            (collections[UpperCase(cut->Prefix)].*side).Add(*cut, texts[i]);
            found = true;
        }
    return found;
}

std::vector<std::string> KeysOf(const std::vector<TKeyedText>& texts) {
    std::vector<std::string> keys;
    keys.reserve(texts.size());
    for (const TKeyedText& text : texts)
        keys.push_back(text.Key);
    return keys;
}

/// The key with its item's present place; "" where the item is gone.
std::string Moved(const std::string& key, int level, const TCollections& collections) {
    const auto cut = CutAt(key, level);
    if (!cut) return key;
    const TCollection& collection = collections.at(UpperCase(cut->Prefix));
    const TItem& item = collection.Former.Items[collection.Former.ByToken.at(UpperCase(cut->Token))];
    if (item.Match == kNoMatch) return {};
    return std::string(cut->Prefix) + '[' + collection.Present.Items[item.Match].Token + ']' +
           std::string(cut->Tail);
}

}  // namespace

std::vector<std::string> MatchItems(const std::vector<TKeyedText>& former,
                                    const std::vector<TKeyedText>& present) {
    std::vector<std::string> keys = KeysOf(former);
    const std::vector<std::string> presentKeys = KeysOf(present);
    for (int level = 0;; ++level) {
        TCollections collections;
        if (!Collect(keys, former, level, &TCollection::Former, collections)) return keys;
        Collect(presentKeys, present, level, &TCollection::Present, collections);
        for (auto& [prefix, collection] : collections)
            collection.Match();
        for (std::string& key : keys)
            key = Moved(key, level, collections);
    }
}

}  // namespace tml

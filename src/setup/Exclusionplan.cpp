#include "setup/Exclusionplan.h"

#include <algorithm>
#include <unordered_set>

#include "base/Utf8.h"
#include "tables/Exclusionrules.h"
#include "tables/Propertytexts.h"

namespace tml {
namespace {

using TOwnerPaths = std::unordered_set<std::string>;

TOwnerPaths OwnerPaths(const TExclusionForm& form) {
    TOwnerPaths paths;
    for (const TTextOwner& owner : form.Owners)
        paths.insert(UpperCase(owner.Path));
    return paths;
}

/// The components that an entry may begin with.
std::vector<std::string> NamedBy(const std::string& entry, const TOwnerPaths& paths) {
    std::vector<std::string> named;
    const std::string upper = UpperCase(Trim(entry));
    for (std::size_t dot = upper.find('.'); dot != std::string::npos; dot = upper.find('.', dot + 1))
        if (dot > 0 && paths.count(upper.substr(0, dot)) > 0) named.push_back(upper.substr(0, dot));
    return named;
}

TExclusionRules RulesOfEntry(TExclusionList list, const std::string& entry, const TOwnerPaths& paths) {
    TExclusionLists lists;
    lists[list].Add(entry);
    return {lists[TExclusionList::DoNotTranslate], lists[TExclusionList::ExcludedProperties],
            lists[TExclusionList::SmartExcludeProps], NamedBy(entry, paths)};
}

/// The components that rules leave out whole, or with what holds them.
std::vector<bool> OwnersLeftOut(const TExclusionForm& form, const TExclusionRules& rules) {
    std::vector<bool> held;
    std::vector<bool> leftOut;
    for (const TTextOwner& owner : form.Owners) {
        held.push_back((owner.Holder >= 0 && held[static_cast<std::size_t>(owner.Holder)]) ||
                       rules.DoesNotTranslate(owner.Path));
        leftOut.push_back(held.back() || rules.ExcludesComponent(owner.Path, owner.ClassName));
    }
    return leftOut;
}

TExclusionUse UseOf(const TExclusionForm& form, TExclusionList list, const std::string& entry,
                    const TOwnerPaths& paths) {
    const TExclusionRules rules = RulesOfEntry(list, entry, paths);
    const std::vector<bool> owners = OwnersLeftOut(form, rules);
    TExclusionUse use{list, entry, {}, std::find(owners.begin(), owners.end(), true) != owners.end()};
    for (const TExclusionText& text : form.Texts) {
        const TTextOwner& owner = form.OwnerOf(text);
        const TTextProperty property{owner.ClassName, owner.Name, text.Property};
        use.Texts.push_back(owners[static_cast<std::size_t>(text.Owner)] ||
                            rules.ExcludesProperty(owner.Path, property) ||
                            (!text.HasEntry && rules.ExcludesText(property, text.Text)));
    }
    return use;
}

bool HaveCommonFlag(const TTextFlags& a, const TTextFlags& b) {
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] && b[i]) return true;
    return false;
}

void AddFlags(TTextFlags& to, const TTextFlags& flags) {
    for (std::size_t i = 0; i < flags.size(); ++i)
        to[i] = to[i] || flags[i];
}

/// Excludes texts one component at a time: whole where it was so and nothing of it is wanted.
class TNarrowEntries {
  public:
    TNarrowEntries(const TExclusionForm& form, TExclusionLists& lists)
        : form_(form), lists_(lists), texts_(form.Owners.size()) {
        for (std::size_t i = 0; i < form.Texts.size(); ++i)
            texts_[static_cast<std::size_t>(form.Texts[i].Owner)].push_back(i);
    }

    void Add(const TTextFlags& excluded, const TTextFlags& asWhole) {
        for (std::size_t owner = 0; owner < texts_.size(); ++owner) {
            const auto all = [&](const TTextFlags& flags) {
                return !texts_[owner].empty() && std::all_of(texts_[owner].begin(), texts_[owner].end(),
                                                             [&](std::size_t text) { return flags[text]; });
            };
            if (all(asWhole) && all(excluded))
                AddEntry(ComponentEntry(form_.Owners[owner]));
            else
                for (const std::size_t text : texts_[owner])
                    if (excluded[text])
                        AddEntry(PropertyEntry(form_.Owners[owner], form_.Texts[text].Property));
        }
    }

  private:
    void AddEntry(const std::string& entry) {
        AddExclusion(lists_, TExclusionList::ExcludedProperties, entry);
    }

    const TExclusionForm& form_;
    TExclusionLists& lists_;
    std::vector<std::vector<std::size_t>> texts_;  ///< of each component
};

}  // namespace

std::string ComponentEntry(const TTextOwner& owner) {
    return owner.Path.empty() ? owner.ClassName : "!" + owner.Path;
}

std::string PropertyEntry(const TTextOwner& owner, std::string_view path) {
    return (owner.Path.empty() ? owner.ClassName : owner.Path) + '.' + std::string(path);
}

std::string EverywhereEntry(std::string_view path) {
    return '.' + WithoutIndexes(path);
}

std::string ClassPropertyEntry(std::string_view className, std::string_view path) {
    return std::string(className) + '.' + WithoutIndexes(path);
}

int TExclusionUse::Count() const {
    return static_cast<int>(std::count(Texts.begin(), Texts.end(), true));
}

std::vector<TExclusionUse> UsesOf(const TExclusionForm& form, const TExclusionLists& lists) {
    std::vector<TExclusionUse> uses;
    const TOwnerPaths paths = lists == TExclusionLists() ? TOwnerPaths() : OwnerPaths(form);
    for (const TExclusionList list : kExclusionLists)
        for (const std::string& entry : lists[list])
            uses.push_back(UseOf(form, list, entry, paths));
    return uses;
}

TExclusionUse UseOf(const TExclusionForm& form, TExclusionList list, const std::string& entry) {
    return UseOf(form, list, entry, OwnerPaths(form));
}

std::vector<int> ExcludedBy(const TExclusionForm& form, const std::vector<TExclusionUse>& uses) {
    std::vector<int> by(form.Texts.size(), -1);
    for (std::size_t use = uses.size(); use-- > 0;)
        for (std::size_t i = 0; i < by.size(); ++i)
            if (uses[use].Texts[i]) by[i] = static_cast<int>(use);
    return by;
}

TExclusionEffect& TExclusionEffect::operator+=(const TExclusionEffect& other) {
    Leave += other.Leave;
    ComeBack += other.ComeBack;
    Dropped += other.Dropped;
    return *this;
}

TExclusionEffect EffectOf(const TExclusionForm& form, const TExclusionLists& before,
                          const TExclusionLists& after) {
    TExclusionEffect effect;
    if (before == after) return effect;
    const std::vector<int> was = ExcludedBy(form, UsesOf(form, before));
    const std::vector<int> is = ExcludedBy(form, UsesOf(form, after));
    for (std::size_t i = 0; i < form.Texts.size(); ++i) {
        const TExclusionText& text = form.Texts[i];
        const bool stays = form.KeepsEntries && text.HasEntry;
        if (!text.IsOffered() || stays || (was[i] < 0) == (is[i] < 0)) continue;
        ++(is[i] < 0 ? effect.ComeBack : effect.Leave);
        if (is[i] >= 0) effect.Dropped += text.Translations;
    }
    return effect;
}

TExclusionLists TakenBack(const TExclusionForm& form, const TExclusionLists& lists, const TTextFlags& texts) {
    TExclusionLists taken = lists;
    TTextFlags excluded(texts.size());
    TTextFlags asWhole(texts.size());
    TTextFlags others(texts.size());
    for (const TExclusionUse& use : UsesOf(form, lists)) {
        if (use.List == TExclusionList::SmartExcludeProps || !HaveCommonFlag(use.Texts, texts)) {
            AddFlags(others, use.Texts);
            continue;
        }
        RemoveExclusion(taken, use.List, use.Entry);
        AddFlags(excluded, use.Texts);
        if (use.OfComponents) AddFlags(asWhole, use.Texts);
    }
    for (std::size_t i = 0; i < texts.size(); ++i)
        excluded[i] = excluded[i] && !texts[i] && !others[i];
    TNarrowEntries(form, taken).Add(excluded, asWhole);
    return taken;
}

}  // namespace tml

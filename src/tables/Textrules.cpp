#include "tables/Textrules.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/Utf8.h"
#include "tables/Componentclasses.h"
#include "tables/Propertytexts.h"
#include "tables/Textshapes.h"

namespace tml {
namespace {

/// path has no indexes. The end of a name is told by its case: "DefaultExt" ends with no "Text".
bool Fits(const TTextRule& rule, std::string_view path) {
    const std::string_view property = rule.Property;
    if (property.starts_with('*')) return path.ends_with(property.substr(1));
    if (path.size() < property.size()) return false;
    const std::size_t rest = path.size() - property.size();
    return SameText(path.substr(rest), property) && (rest == 0 || path[rest - 1] == '.');
}

using TRules = std::vector<const TTextRule*>;

/// The rules by class, upper-cased.
const std::unordered_map<std::string, TRules>& RulesByClass() {
    static const auto rules = [] {
        std::unordered_map<std::string, TRules> byClass;
        for (const TTextRule& rule : kTextRules)
            byClass[UpperCase(rule.ClassName)].push_back(&rule);
        return byClass;
    }();
    return rules;
}

const TTextRule* RuleOf(const std::string& upperClass, std::string_view path) {
    const auto rules = RulesByClass().find(upperClass);
    if (rules == RulesByClass().end()) return nullptr;
    // A whole name is surer than the end of one.
    for (const bool byEnd : {false, true})
        for (const TTextRule* rule : rules->second)
            if (rule->Property.starts_with('*') == byEnd && Fits(*rule, path)) return rule;
    return nullptr;
}

const TTextRule* RuleOfClassesNamedAlike(std::string_view className, std::string_view path) {
    for (const TTextRule& rule : kTextRules)
        if (rule.ClassName.starts_with('*') && className.ends_with(rule.ClassName.substr(1)) &&
            Fits(rule, path))
            return &rule;
    return nullptr;
}

const TTextRule* SearchRule(std::string_view className, const std::string& path) {
    for (std::string_view name = className; !name.empty(); name = ComponentAncestor(name))
        if (const TTextRule* rule = RuleOf(UpperCase(name), path)) return rule;
    if (const TTextRule* rule = RuleOfClassesNamedAlike(className, path)) return rule;
    return RuleOf("", path);
}

/// What has been found for a property.
struct TFoundRule {
    std::string ClassName;
    std::string Path;
    const TTextRule* Rule = nullptr;
};

/// Forms repeat the same few classes and properties, so that what has been found is kept.
const TTextRule* KeptRule(const TTextProperty& property) {
    constexpr std::size_t kMostKept = 10'000;
    thread_local std::unordered_map<std::string, const TTextRule*> kept;
    if (kept.size() > kMostKept) kept.clear();
    const std::string path = WithoutIndexes(property.Path);
    std::string key;
    key.reserve(property.ClassName.size() + 1 + path.size());
    ((key += property.ClassName) += ':') += path;
    const auto [place, isNew] = kept.try_emplace(std::move(key));
    if (isNew) place->second = SearchRule(property.ClassName, path);
    return place->second;
}

/// Most components have the class of the one before them.
const TTextRule* FindRule(const TTextProperty& property) {
    thread_local TFoundRule last;
    if (last.ClassName != property.ClassName || last.Path != property.Path)
        last = {std::string(property.ClassName), std::string(property.Path), KeptRule(property)};
    return last.Rule;
}

/// Settings and lists have tables of their own; any other text of an item stands with those of collections.
TStringsType TableFor(const TTextRule& rule, const TTextProperty& property) {
    if (rule.Nature == TTextNature::Setting) return rule.Table;
    if (property.IsList) return TStringsType::stMultiLines;
    if (property.Path.find('[') != std::string_view::npos) return TStringsType::stCollections;
    return rule.Table;
}

/// A name that the designer or the programmer gave: the component's own, its class with a number, one with a
/// prefix for its type. The program puts a text in its place. A caption may be a word that is the name, too.
bool IsComponentName(const TTextProperty& property, TTextNature nature, std::string_view value) {
    const bool isOwnName = SameText(value, property.ComponentName);
    if (!LooksLikeIdentifier(value)) return isOwnName && nature == TTextNature::Content;
    if (isOwnName || HasTypePrefix(value)) return true;
    if (property.ClassName.size() < 2) return false;
    const std::string_view stem = property.ClassName.substr(1);
    return value.size() >= stem.size() && SameText(value.substr(0, stem.size()), stem) &&
           value.find_first_not_of("0123456789", stem.size()) == std::string_view::npos;
}

bool LooksLikeData(std::string_view value) {
    return LooksLikeIdentifier(value) || IsPath(value) || IsAddress(value) || IsNumber(value);
}

/// True when some line passes the test.
template <typename Test>
bool AnyLine(std::string_view value, Test test) {
    while (true) {
        const std::size_t end = value.find('\n');
        if (test(Trim(value.substr(0, end)))) return true;
        if (end == std::string_view::npos) return false;
        value.remove_prefix(end + 1);
    }
}

/// A description that is more than its patterns, as in "Web pages (*.html)|*.html" and not in
/// "*.html|*.html".
bool Describes(std::string_view filter) {
    for (bool isDescription = filter.find('|') != std::string_view::npos; !filter.empty();
         isDescription = !isDescription) {
        const std::size_t end = std::min(filter.find('|'), filter.size());
        std::string_view words = filter.substr(0, end);
        filter.remove_prefix(std::min(end + 1, filter.size()));
        while (isDescription && !words.empty()) {
            const std::size_t blank = std::min(words.find_first_of(" ;,()"), words.size());
            const std::string_view word = words.substr(0, blank);
            if (HasLetter(word) && !word.starts_with("*.")) return true;
            words.remove_prefix(std::min(blank + 1, words.size()));
        }
    }
    return false;
}

bool Says(TTextNature nature, std::string_view value) {
    switch (nature) {
        case TTextNature::Never:
            return false;
        case TTextNature::Setting:
            return true;
        case TTextNature::Filter:
            return Describes(value);
        case TTextNature::Wording:
            return HasLetter(value);
        case TTextNature::Content:
            break;
    }
    return AnyLine(value, [](std::string_view line) { return HasLetter(line) && !LooksLikeData(line); });
}

}  // namespace

std::optional<TTextKind> KindOfText(const TTextProperty& property, std::string_view value) {
    const TTextRule* rule = FindRule(property);
    if (rule == nullptr || rule->Nature == TTextNature::Never) return std::nullopt;
    const bool isForReaders =
        rule->Nature == TTextNature::Setting ||
        (Says(rule->Nature, value) && !IsComponentName(property, rule->Nature, Trim(value)));
    return TTextKind{TableFor(*rule, property), isForReaders};
}

}  // namespace tml

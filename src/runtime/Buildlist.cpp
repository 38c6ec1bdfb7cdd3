#include "runtime/Buildlist.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/Format.h"
#include "base/Languagetags.h"
#include "base/Utf8.h"
#include "runtime/Classes.h"
#include "runtime/Componentprops.h"
#include "runtime/Extended.h"
#include "runtime/Formparts.h"
#include "runtime/Langview.h"
#include "runtime/Textcollector.h"
#include "tables/Inheritedstrings.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

std::vector<std::string> PathsOf(const TFormParts& parts) {
    std::vector<std::string> paths;
    for (const TFormPart& part : parts.Items())
        paths.push_back(part.Path);
    return paths;
}

TExclusionRules RulesOf(TmlCustomLang& lang, const TFormParts& parts) {
    return {lang.GetExclusions(TExclusionList::DoNotTranslate),
            lang.GetExclusions(TExclusionList::ExcludedProperties),
            lang.GetExclusions(TExclusionList::SmartExcludeProps), PathsOf(parts)};
}

struct TLanguages {
    int Count;
    int Active;
    TStringList Names;
};

/// Under a dispatcher its languages hold.
TLanguages LanguagesOf(TmlCustomLang& lang) {
    if (const auto dispatcher = lang.GetDispatcher())
        return {dispatcher->GetNumOfLanguages(), dispatcher->GetActiveLanguage(), dispatcher->GetLangNames()};
    return {lang.GetNumLang(), lang.GetActiveLanguage(), lang.GetLangNames()};
}

/// Languages whose names tell what they are get their tags; a tag that is there stays.
void FillLocales(TTable& locales, const TStringList& names) {
    constexpr const char* kLocale = ".Locale";
    for (int i = 0; i < names.Count(); ++i) {
        const std::string tag = LanguageTagOf(names[i]);
        if (tag.empty()) continue;
        locales.Add(kLocale, {}, names.Count());
        const int entry = locales.Find(kLocale);
        const auto& values = locales.Entries()[static_cast<std::size_t>(entry)].Values;
        const auto place = static_cast<std::size_t>(i);
        if (place >= values.size() || values[place].Text.empty()) locales.SetText(entry, i + 1, tag);
    }
}

/// Entries that stay although the form has no such text.
class TStaying {
  public:
    TStaying(const TFormParts& parts, const TExclusionRules& rules, bool showsBase)
        : parts_(parts), rules_(rules), excluded_(NotTranslated(parts, rules)), showsBase_(showsBase) {}

    bool operator()(const std::string& key, bool isItemGone) const {
        if (IsUnseen(key)) return true;
        if (isItemGone) return false;
        const TFormPart* part = parts_.OfKey(key);
        if (part == nullptr || IsExcluded(*part, key)) return false;
        // In another language a property may have its default, which no form holds.
        return !showsBase_ || part->TranslatesItself;
    }

  private:
    bool IsUnseen(const std::string& key) const {
        return std::any_of(parts_.Unseen().begin(), parts_.Unseen().end(), [&](const std::string& path) {
            return path.empty() || (key.size() > path.size() && key[path.size()] == '.' &&
                                    SameText(key.substr(0, path.size()), path));
        });
    }
    bool IsExcluded(const TFormPart& part, const std::string& key) const {
        const auto index = static_cast<std::size_t>(&part - parts_.Items().data());
        const std::string path = key.substr(part.Path.size() + 1);
        return excluded_[index] || rules_.ExcludesComponent(part.Path, part.ClassName) ||
               rules_.ExcludesProperty(part.Path, {part.ClassName, part.Name, path});
    }

    const TFormParts& parts_;
    const TExclusionRules& rules_;
    std::vector<bool> excluded_;
    bool showsBase_;
};

TStringList NotesOn(const TFormParts& parts, const std::string& owner, TStringList notes) {
    for (const std::string& path : parts.Unseen())
        notes.Insert(0,
                     Format("%s: the form that it repeats is not in the project; its texts stay as they are",
                            path.empty() ? owner : path));
    return notes;
}

void TakeFromAncestor(TTable& strings, TmlCustomLang& lang) {
    const auto ancestor = lang.GetComponent()->GetAncestor();
    if (ancestor == nullptr) return;
    TmlLangView inherited(ancestor);
    TakeInheritedStrings(strings, lang.GetLangNames(), inherited.GetTable(TStringsType::stStrings),
                         inherited.GetLangNames());
}

}  // namespace

TStringList BuildTables(TmlCustomLang& lang) {
    const auto owner = lang.GetComponent()->GetOwner();
    const TFormParts parts(owner);
    const TExclusionRules rules = RulesOf(lang, parts);
    const bool withItems = ClassInheritsFrom(lang.GetClassName(), "TmlLangTLV");
    const TCollectedTexts collected = CollectTexts(parts, rules, withItems);
    std::vector<TTable> tables = lang.GetTables();
    const TLanguages languages = LanguagesOf(lang);
    MergeTexts(
        tables, collected.Texts,
        {languages.Count, languages.Active, ReadBooleanProp(*lang.GetComponent(), "IgnoreRemovals", false),
         TStaying(parts, rules, languages.Active == 1)});
    TakeFromAncestor(tables[static_cast<std::size_t>(TStringsType::stStrings)], lang);
    FillLocales(tables[static_cast<std::size_t>(TStringsType::stLocales)], languages.Names);
    lang.SetTables(tables);
    UpdateExtended(*lang.GetComponent(), parts, languages.Active);
    return NotesOn(parts, owner->GetName(), collected.Notes);
}

void ClearTables(TmlCustomLang& lang) {
    std::vector<TTable> tables = lang.GetTables();
    for (TTable& table : tables)
        // What language a language is stays true without translations.
        if (table.Type() != TStringsType::stLocales) table.ClearTranslations();
    lang.SetTables(tables);
    ClearExtended(*lang.GetComponent());
}

}  // namespace tml

#include "runtime/Buildlist.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/Format.h"
#include "base/Languagetags.h"
#include "base/Utf8.h"
#include "runtime/Classes.h"
#include "runtime/Extended.h"
#include "runtime/Formparts.h"
#include "runtime/Showlanguage.h"
#include "runtime/Textcollector.h"
#include "tables/Inheritedstrings.h"
#include "tables/Languages.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

TFormParts PartsWithTexts(const std::shared_ptr<IOTAComponent>& owner) {
    return TFormParts(owner, TFormParts::TFrames::Translated, TFormParts::TProps::OfTexts);
}

std::vector<std::string> PathsOf(const TFormParts& parts) {
    std::vector<std::string> paths;
    paths.reserve(parts.Items().size());
    for (const TFormPart& part : parts.Items())
        paths.push_back(part.Path);
    return paths;
}

TExclusionRules RulesOf(TmlCustomLang& lang, const TFormParts& parts) {
    const TStringList properties = lang.GetExclusions(TExclusionList::ExcludedProperties);
    // Only their entries ask whether a name is that of a component or of a class.
    return {lang.GetExclusions(TExclusionList::DoNotTranslate), properties,
            lang.GetExclusions(TExclusionList::SmartExcludeProps),
            properties.Empty() ? std::vector<std::string>() : PathsOf(parts)};
}

/// Languages whose names tell what they are get their tags; a tag that is there stays.
void FillLocales(TTable& locales, const TStringList& names) {
    constexpr const char* kLocale = ".Locale";
    const auto isKnown = [&](std::size_t place) {
        const int entry = locales.Find(kLocale);
        if (entry < 0) return false;
        const auto& values = locales.Entries()[static_cast<std::size_t>(entry)].Values;
        return place < values.size() && !values[place].Text.empty();
    };
    for (int i = 0; i < names.Count(); ++i) {
        // Tags of all languages there are cost more to read than a form.
        const std::string tag = isKnown(static_cast<std::size_t>(i)) ? "" : LanguageTagOf(names[i]);
        if (tag.empty()) continue;
        locales.Add(kLocale, {}, names.Count());
        locales.SetText(locales.Find(kLocale), i + 1, tag);
    }
}

bool HasItems(TmlCustomLang& lang) {
    return ClassInheritsFrom(lang.GetClassName(), "TmlLangTLV");
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
    if (const auto ancestor = lang.GetInherited())
        TakeInheritedStrings(strings, lang.GetLangNames(), ancestor->GetTable(TStringsType::stStrings),
                             ancestor->GetLangNames());
}

/// An update would take what the form shows for translations. What has changed since the last one is a
/// translation, too, and no base text. The language of a dispatcher is that of other forms and stays.
void ShowBaseLanguage(TmlCustomLang& lang) {
    const TEffectiveLanguages languages(lang);
    const int active = languages.Get().GetActiveLanguage();
    if (active <= 1) return;
    BuildTables(lang);
    lang.ShowLanguage(active, 1);
    if (languages.Dispatcher() == nullptr) lang.SetLanguage(lang.GetLangNames()[0]);
}

bool HaveSameEntries(const TTable& a, const TTable& b) {
    return a.Entries() == b.Entries();
}

}  // namespace

TLangTexts ReadTexts(TmlCustomLang& lang) {
    const TStringList names = TEffectiveLanguages(lang).Get().GetLangNames();
    return {FitLangNames(names, std::max(names.Count(), 1)), lang.GetTables(),
            ReadExtended(*lang.GetComponent())};
}

void WriteTexts(TmlCustomLang& lang, const TLangTexts& texts) {
    lang.SetTables(texts.Tables);
    WriteExtended(*lang.GetComponent(), texts.Extended);
}

void EditTexts(TmlCustomLang& lang, const TLangTexts& before, const TLangTexts& after) {
    WriteTexts(lang, after);
    ShowChangedTexts(lang, before, after, TEffectiveLanguages(lang).Get().GetActiveLanguage());
}

TBuiltTexts BuiltTexts(TmlCustomLang& lang) {
    const auto owner = lang.GetComponent()->GetOwner();
    const TFormParts parts = PartsWithTexts(owner);
    const TExclusionRules rules = RulesOf(lang, parts);
    const TCollectedTexts collected = CollectTexts(parts, rules, HasItems(lang));
    TLangTexts texts = ReadTexts(lang);
    const int active = TEffectiveLanguages(lang).Get().GetActiveLanguage();
    MergeTexts(
        texts.Tables, collected.Texts,
        {texts.Languages.Count(), active, lang.GetIgnoreRemovals(), TStaying(parts, rules, active == 1)});
    TakeFromAncestor(texts.Tables[static_cast<std::size_t>(TStringsType::stStrings)], lang);
    FillLocales(texts.Tables[static_cast<std::size_t>(TStringsType::stLocales)], texts.Languages);
    UpdateExtended(texts.Extended, parts, active);
    return {std::move(texts), NotesOn(parts, owner->GetName(), collected.Notes)};
}

TStringList BuildTables(TmlCustomLang& lang) {
    const TBuiltTexts built = BuiltTexts(lang);
    WriteTexts(lang, built.Texts);
    return built.Notes;
}

bool AreTablesBuilt(TmlCustomLang& lang) {
    const TLangTexts built = BuiltTexts(lang).Texts;
    const TLangTexts present = ReadTexts(lang);
    return built.Extended == present.Extended &&
           std::equal(built.Tables.begin(), built.Tables.end(), present.Tables.begin(), present.Tables.end(),
                      HaveSameEntries);
}

TTextsOfForm TextsOfForm(TmlCustomLang& lang) {
    return AllTexts(PartsWithTexts(lang.GetComponent()->GetOwner()), HasItems(lang));
}

void ClearTables(TmlCustomLang& lang) {
    ShowBaseLanguage(lang);
    TLangTexts texts = ReadTexts(lang);
    for (TTable& table : texts.Tables)
        // What language a language is stays true without translations.
        if (table.Type() != TStringsType::stLocales) table.ClearTranslations();
    for (TExtendedItem& item : texts.Extended)
        for (std::size_t i = 1; i < item.Values.size(); ++i)
            item.Values[i].clear();
    WriteTexts(lang, texts);
}

}  // namespace tml

#include "runtime/Textcollector.h"

#include <utility>

#include "base/Format.h"
#include "base/Utf8.h"
#include "runtime/Classes.h"
#include "runtime/Itemdata.h"
#include "tables/Propertytexts.h"

namespace tml {
namespace {

bool IsLocalization(const std::string& className) {
    return ClassInheritsFrom(className, "TmlCustomLang") || ClassInheritsFrom(className, "TmlLangDispatcher");
}

class TCollector {
  public:
    TCollector(const TExclusionRules& rules, bool withItems) : rules_(rules), withItems_(withItems) {}

    void Add(const TFormPart& part) {
        for (const TPropertyText& text : TextsOfProperties(part.Properties))
            Add(part, text);
        if (!withItems_) return;
        for (const TFormProperty& property : part.Properties)
            if (HoldsItems(property)) AddItems(part, property);
    }

    TCollectedTexts Result;

  private:
    void Add(const TFormPart& part, const TPropertyText& text) {
        // What holds for a font holds for its name.
        const std::string path = text.Shape == TTextShape::Font ? text.Path + ".Name" : text.Path;
        const TTextProperty property{part.ClassName, part.Name, path, text.Shape == TTextShape::List};
        const auto kind = KindOfText(property, text.Text);
        if (!kind || rules_.ExcludesProperty(part.Path, property)) return;
        const bool enters = kind->IsForReaders && !rules_.ExcludesText(property, text.Text);
        Result.Texts.push_back({kind->Table, part.Path + '.' + text.Path, text.Text, enters});
    }

    void AddItems(const TFormPart& part, const TFormProperty& property) {
        const auto items = ReadItemData(property);
        if (!items) {
            Result.Notes.Add(
                Format("%s: its %s cannot be read; it stays as it is", part.Path, property.Name));
            return;
        }
        for (const TItemData::TText& text : items->Texts()) {
            const std::string path = "Items" + text.Place;
            const TTextProperty place{part.ClassName, part.Name, path};
            if (rules_.ExcludesProperty(part.Path, place)) continue;
            // Items are wording or data, as those of a list are.
            const auto kind = KindOfText({"TListBox", part.Name, "Items", true}, text.Text);
            const bool enters = kind->IsForReaders && !rules_.ExcludesText(place, text.Text);
            Result.Texts.push_back(
                {TStringsType::stListView_TreeView_Items, part.Path + '.' + path, text.Text, enters});
        }
    }

    const TExclusionRules& rules_;
    bool withItems_;
};

}  // namespace

std::vector<bool> NotTranslated(const TFormParts& parts, const TExclusionRules& rules) {
    std::vector<bool> excluded;
    for (const TFormPart& part : parts.Items())
        excluded.push_back((part.Holder >= 0 && excluded[static_cast<std::size_t>(part.Holder)]) ||
                           rules.DoesNotTranslate(part.Path));
    return excluded;
}

TCollectedTexts CollectTexts(const TFormParts& parts, const TExclusionRules& rules, bool withItems) {
    const std::vector<bool> excluded = NotTranslated(parts, rules);
    TCollector collector(rules, withItems);
    for (std::size_t i = 0; i < excluded.size(); ++i) {
        const TFormPart& part = parts.Items()[i];
        if (!excluded[i] && !IsLocalization(part.ClassName) &&
            !rules.ExcludesComponent(part.Path, part.ClassName))
            collector.Add(part);
    }
    return std::move(collector.Result);
}

}  // namespace tml

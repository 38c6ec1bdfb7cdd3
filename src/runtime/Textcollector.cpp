#include "runtime/Textcollector.h"

#include <utility>

#include "base/Format.h"
#include "base/Utf8.h"
#include "runtime/Classes.h"
#include "tables/Itemdata.h"
#include "tables/Propertytexts.h"

namespace tml {
namespace {

bool IsLocalization(const std::string& className) {
    return ClassInheritsFrom(className, "TmlCustomLang") || ClassInheritsFrom(className, "TmlLangDispatcher");
}

class TCollector {
  public:
    explicit TCollector(bool withItems) : withItems_(withItems) {}

    void Add(const TFormPart& part) {
        const int owner = static_cast<int>(Result.Owners.size());
        Result.Owners.push_back({part.Path, part.Name, part.ClassName, part.Holder});
        if (IsLocalization(part.ClassName)) return;
        ReadTextsOfProperties(part.Properties, texts_);
        for (TPropertyText& text : texts_)
            Add(part, owner, std::move(text));
        if (!withItems_) return;
        for (const TFormProperty& property : part.Properties)
            if (HoldsItems(property)) AddItems(part, owner, property);
    }

    TTextsOfForm Result;

  private:
    void Add(const TFormPart& part, int owner, TPropertyText text) {
        // What holds for a font holds for its name.
        const std::string path = text.Shape == TTextShape::Font ? text.Path + ".Name" : text.Path;
        const auto kind =
            KindOfText({part.ClassName, part.Name, path, text.Shape == TTextShape::List}, text.Text);
        if (kind)
            Result.Texts.push_back(
                {owner, std::move(text.Path), std::move(text.Text), kind->Table, kind->IsForReaders});
    }

    void AddItems(const TFormPart& part, int owner, const TFormProperty& property) {
        const auto items = ReadItemData(property);
        if (!items) {
            Result.Notes.Add(
                Format("%s: its %s cannot be read; it stays as it is", part.Path, property.Name));
            return;
        }
        for (const TItemData::TText& text : items->Texts()) {
            // Items are wording or data, as those of a list are.
            const auto kind = KindOfText({"TListBox", part.Name, "Items", true}, text.Text);
            Result.Texts.push_back({owner, "Items" + text.Place, text.Text,
                                    TStringsType::stListView_TreeView_Items, kind->IsForReaders});
        }
    }

    bool withItems_;
    std::vector<TPropertyText> texts_;  ///< of one component
};

}  // namespace

std::vector<bool> NotTranslated(const TFormParts& parts, const TExclusionRules& rules) {
    std::vector<bool> excluded;
    for (const TFormPart& part : parts.Items())
        excluded.push_back((part.Holder >= 0 && excluded[static_cast<std::size_t>(part.Holder)]) ||
                           rules.DoesNotTranslate(part.Path));
    return excluded;
}

TTextsOfForm AllTexts(const TFormParts& parts, bool withItems) {
    TCollector collector(withItems);
    collector.Result.Owners.reserve(parts.Items().size());
    collector.Result.Texts.reserve(parts.Items().size());
    for (const TFormPart& part : parts.Items())
        collector.Add(part);
    return std::move(collector.Result);
}

TCollectedTexts CollectTexts(const TFormParts& parts, const TExclusionRules& rules, bool withItems) {
    TTextsOfForm all = AllTexts(parts, withItems);
    std::vector<bool> excluded = NotTranslated(parts, rules);
    for (std::size_t i = 0; i < excluded.size(); ++i)
        excluded[i] = excluded[i] || rules.ExcludesComponent(all.Owners[i].Path, all.Owners[i].ClassName);
    TCollectedTexts collected{{}, std::move(all.Notes)};
    collected.Texts.reserve(all.Texts.size());
    for (TOwnedText& text : all.Texts) {
        const TTextOwner& owner = all.Owners[static_cast<std::size_t>(text.Owner)];
        const TTextProperty property{owner.ClassName, owner.Name, text.Property};
        if (excluded[static_cast<std::size_t>(text.Owner)] || rules.ExcludesProperty(owner.Path, property))
            continue;
        const bool enters = text.IsForReaders && !rules.ExcludesText(property, text.Text);
        collected.Texts.push_back({text.Table, text.KeyOf(owner), std::move(text.Text), enters});
    }
    return collected;
}

}  // namespace tml

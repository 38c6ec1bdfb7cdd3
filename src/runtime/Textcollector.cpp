#include "runtime/Textcollector.h"

#include <functional>
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

using TTakeText = std::function<void(TOwnedText&& text)>;

class TCollector {
  public:
    TCollector(bool withItems, const TTakeText& take) : withItems_(withItems), take_(take) {}

    void Pass(const TFormPart& part, int owner) {
        if (IsLocalization(part.ClassName)) return;
        ReadTextsOfProperties(part.Properties, texts_);
        for (TPropertyText& text : texts_)
            Pass(part, owner, text);
        if (!withItems_) return;
        for (const TFormProperty& property : part.Properties)
            if (HoldsItems(property)) PassItems(part, owner, property);
    }

    TStringList Notes;

  private:
    void Pass(const TFormPart& part, int owner, TPropertyText& text) {
        // What holds for a font holds for its name.
        const std::string path = text.Shape == TTextShape::Font ? text.Path + ".Name" : text.Path;
        const auto kind =
            KindOfText({part.ClassName, part.Name, path, text.Shape == TTextShape::List}, text.Text);
        if (kind) take_({owner, std::move(text.Path), std::move(text.Text), kind->Table, kind->IsForReaders});
    }

    void PassItems(const TFormPart& part, int owner, const TFormProperty& property) {
        const auto items = ReadItemData(property);
        if (!items) {
            Notes.Add(Format("%s: its %s cannot be read; it stays as it is", part.Path, property.Name));
            return;
        }
        for (const TItemData::TText& text : items->Texts()) {
            // Items are wording or data, as those of a list are.
            const auto kind = KindOfText({"TListBox", part.Name, "Items", true}, text.Text);
            take_({owner, "Items" + text.Place, text.Text, TStringsType::stListView_TreeView_Items,
                   kind->IsForReaders});
        }
    }

    bool withItems_;
    const TTakeText& take_;
    std::vector<TPropertyText> texts_;  ///< of one component
};

/// Passes the texts in the order of the form; gives notes on what could not be read.
TStringList PassTexts(const TFormParts& parts, bool withItems, const TTakeText& take) {
    TCollector collector(withItems, take);
    for (std::size_t i = 0; i < parts.Items().size(); ++i)
        collector.Pass(parts.Items()[i], static_cast<int>(i));
    return std::move(collector.Notes);
}

}  // namespace

std::vector<bool> NotTranslated(const TFormParts& parts, const TExclusionRules& rules) {
    std::vector<bool> excluded(parts.Items().size());
    for (std::size_t i = 0; i < excluded.size(); ++i) {
        const TFormPart& part = parts.Items()[i];
        excluded[i] = (part.Holder >= 0 && excluded[static_cast<std::size_t>(part.Holder)]) ||
                      rules.DoesNotTranslate(part.Path);
    }
    return excluded;
}

TTextsOfForm AllTexts(const TFormParts& parts, bool withItems) {
    TTextsOfForm all;
    all.Owners.reserve(parts.Items().size());
    for (const TFormPart& part : parts.Items())
        all.Owners.push_back({part.Path, part.Name, part.ClassName, part.Holder});
    all.Texts.reserve(parts.Items().size());
    all.Notes = PassTexts(parts, withItems, [&](TOwnedText&& text) { all.Texts.push_back(std::move(text)); });
    return all;
}

TCollectedTexts CollectTexts(const TFormParts& parts, const TExclusionRules& rules, bool withItems) {
    std::vector<bool> excluded = NotTranslated(parts, rules);
    for (std::size_t i = 0; i < excluded.size(); ++i)
        excluded[i] =
            excluded[i] || rules.ExcludesComponent(parts.Items()[i].Path, parts.Items()[i].ClassName);
    TCollectedTexts collected;
    collected.Texts.reserve(parts.Items().size());
    collected.Notes = PassTexts(parts, withItems, [&](TOwnedText&& text) {
        const auto owner = static_cast<std::size_t>(text.Owner);
        const TFormPart& part = parts.Items()[owner];
        const TTextProperty property{part.ClassName, part.Name, text.Property};
        if (excluded[owner] || rules.ExcludesProperty(part.Path, property)) return;
        const bool enters = text.IsForReaders && !rules.ExcludesText(property, text.Text);
        collected.Texts.push_back({text.Table, text.KeyOf(part.Path), std::move(text.Text), enters});
    });
    return collected;
}

}  // namespace tml

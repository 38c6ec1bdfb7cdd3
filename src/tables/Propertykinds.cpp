#include "tables/Propertykinds.h"

#include "tables/Texttransfer.h"

namespace tml {
namespace {

/// Where each of so many languages was (1-based), 0 where it is new; places: where those of old are now.
std::vector<int> FormerOf(const std::vector<int>& places, std::size_t languages) {
    std::vector<int> former(languages);
    for (std::size_t i = 0; i < places.size(); ++i)
        former[static_cast<std::size_t>(places[i]) - 1] = static_cast<int>(i) + 1;
    return former;
}

std::vector<TExtendedItem> MovedItems(std::vector<TExtendedItem> items, const std::vector<int>& former) {
    for (TExtendedItem& item : items) {
        std::vector<std::string> values;
        for (const int place : former) {
            const auto from = static_cast<std::size_t>(place > 0 ? place : 1) - 1;
            values.push_back(from < item.Values.size() ? item.Values[from] : std::string());
        }
        item.Values = std::move(values);
    }
    return items;
}

}  // namespace

TStringList PropertyKindNames() {
    TStringList names;
    for (const TTableKind& kind : kTableKinds)
        names.Add(std::string(kind.Property));
    names.Add(kExtendedTranslations);
    return names;
}

TPropertyKinds PropertyKindsOf(const TStringList& names) {
    const TStringList known = PropertyKindNames();
    TPropertyKinds kinds;
    for (const std::string& name : names) {
        const int index = known.IndexOf(name);
        if (name == kExtendedTranslations)
            kinds.Extended = true;
        else if (index >= 0 && index < static_cast<int>(kinds.Tables.size()))
            kinds.Tables.set(static_cast<std::size_t>(index));
    }
    return kinds;
}

TLangTexts WithKindsOf(const TLangTexts& form, const TLangTexts& file, const TPropertyKinds& kinds) {
    const TLanguageMeeting meeting = MeetLanguages(form.Languages, file.Languages, TTransferKind::Merge);
    const std::vector<int> ofFile = FormerOf(meeting.Places, meeting.Names.Items().size());
    TLangTexts texts{meeting.Names, {}, {}};
    for (const TTableKind& kind : kTableKinds) {
        const auto ordinal = static_cast<std::size_t>(kind.Type);
        const bool isForms = kinds.Tables[ordinal];
        texts.Tables.push_back(isForms ? form.Tables[ordinal] : file.Tables[ordinal]);
        texts.Tables.back().MoveLanguages(isForms ? meeting.Former : ofFile);
    }
    texts.Extended =
        kinds.Extended ? MovedItems(form.Extended, meeting.Former) : MovedItems(file.Extended, ofFile);
    return texts;
}

int CountEntries(const TLangTexts& texts, const TPropertyKinds& kinds) {
    std::size_t count = kinds.Extended ? texts.Extended.size() : 0;
    for (std::size_t i = 0; i < texts.Tables.size(); ++i)
        if (kinds.Tables[i]) count += texts.Tables[i].Entries().size();
    return static_cast<int>(count);
}

}  // namespace tml

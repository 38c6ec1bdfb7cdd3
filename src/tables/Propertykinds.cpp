#include "tables/Propertykinds.h"

#include <algorithm>
#include <utility>

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

/// Languages that the form has not (0 in former) stay as the file has them.
void KeepOthers(TTable& table, const TTable& file, const std::vector<int>& former) {
    for (int entry = 0; entry < static_cast<int>(table.Entries().size()); ++entry) {
        const int known = file.Find(table.Entries()[static_cast<std::size_t>(entry)].Key);
        if (known < 0) continue;
        const auto& values = file.Entries()[static_cast<std::size_t>(known)].Values;
        for (std::size_t i = 0; i < std::min(former.size(), values.size()); ++i) {
            if (former[i] > 0) continue;
            table.SetText(entry, static_cast<int>(i) + 1, values[i].Text);
            table.SetMark(entry, static_cast<int>(i) + 1, values[i].Mark, values[i].Former);
        }
    }
}

void KeepOthers(std::vector<TExtendedItem>& items, const std::vector<TExtendedItem>& file,
                const std::vector<int>& former) {
    for (TExtendedItem& item : items)
        for (const TExtendedItem& known : file)
            for (std::size_t i = 0; i < former.size(); ++i)
                if (former[i] == 0 && known.Component == item.Component && known.Property == item.Property)
                    item.Values[i] = known.Values[i];
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
        TTable present = file.Tables[ordinal];
        present.MoveLanguages(ofFile);
        if (!kinds.Tables[ordinal]) {
            texts.Tables.push_back(std::move(present));
            continue;
        }
        texts.Tables.push_back(form.Tables[ordinal]);
        texts.Tables.back().MoveLanguages(meeting.Former);
        KeepOthers(texts.Tables.back(), present, meeting.Former);
    }
    texts.Extended = MovedItems(file.Extended, ofFile);
    if (!kinds.Extended) return texts;
    const std::vector<TExtendedItem> present =
        std::exchange(texts.Extended, MovedItems(form.Extended, meeting.Former));
    KeepOthers(texts.Extended, present, meeting.Former);
    return texts;
}

int CountEntries(const TLangTexts& texts, const TPropertyKinds& kinds) {
    std::size_t count = kinds.Extended ? texts.Extended.size() : 0;
    for (std::size_t i = 0; i < texts.Tables.size(); ++i)
        if (kinds.Tables[i]) count += texts.Tables[i].Entries().size();
    return static_cast<int>(count);
}

}  // namespace tml

#include "tables/Langtexts.h"

#include <algorithm>
#include <utility>

namespace tml {

TLangTexts TextsIn(TStringList languages) {
    TLangTexts texts{std::move(languages), {}, {}};
    texts.Tables.reserve(kTableKinds.size());
    for (const TTableKind& kind : kTableKinds)
        texts.Tables.emplace_back(kind.Type);
    return texts;
}

void ForEachMarked(const TLangTexts& texts, const TMarkedText& pass) {
    const std::size_t languages = texts.Languages.Items().size();
    for (const TTable& table : texts.Tables)
        for (const TTableEntry& entry : table.Entries())
            for (std::size_t i = 1; i < std::min(languages, entry.Values.size()); ++i)
                if (entry.Values[i].Mark != TValueMark::None)
                    pass(table.Type(), entry.Key, static_cast<int>(i) + 1, entry.Values[i]);
}

void SetMark(TLangTexts& texts, TStringsType type, const std::string& key, int place, TValueMark mark,
             const std::string& former) {
    TTable& table = texts.Tables[static_cast<std::size_t>(type)];
    const int entry = table.Find(key);
    if (entry >= 0) table.SetMark(entry, place, mark, former);
}

}  // namespace tml

#include "setup/Exclusionform.h"

#include <algorithm>
#include <utility>

#include "tables/States.h"

namespace tml {
namespace {

int TranslationsOf(const TTableEntry& entry) {
    if (entry.Values.empty()) return 0;
    return static_cast<int>(
        std::count_if(entry.Values.begin() + 1, entry.Values.end(),
                      [&](const TTableValue& value) { return IsTranslation(value, entry.Base()); }));
}

}  // namespace

TExclusionForm ReadExclusionForm(TmlCustomLang& lang, std::string formName, std::string fileName) {
    TTextsOfForm all = dynamic_cast<IFormTexts&>(lang).GetTextsOfForm();
    TExclusionForm form{std::move(formName),  std::move(fileName),     std::move(all.Owners), {},
                        ReadExclusions(lang), lang.GetIgnoreRemovals()};
    const std::vector<TTable> tables = lang.GetTables();
    for (TOwnedText& text : all.Texts) {
        TExclusionText added{std::move(text)};
        const TTable& table = tables[static_cast<std::size_t>(added.Table)];
        const int entry = table.Find(added.KeyOf(form.OwnerOf(added).Path));
        added.HasEntry = entry >= 0;
        if (added.HasEntry)
            added.Translations = TranslationsOf(table.Entries()[static_cast<std::size_t>(entry)]);
        form.Texts.push_back(std::move(added));
    }
    return form;
}

}  // namespace tml

#include "tables/Formsection.h"

#include <algorithm>
#include <utility>

#include "tables/States.h"

namespace tml {
namespace {

TFileTable ToFile(TTable table, std::size_t languages) {
    TFileTable file{table.Type(), {}};
    file.Entries.reserve(table.Entries().size());
    for (TTableEntry& entry : std::move(table).TakeEntries()) {
        TFileEntry& written = file.Entries.emplace_back();
        written.Key = std::move(entry.Key);
        written.Fields.reserve(languages);
        for (std::size_t i = 0; i < std::min(languages, entry.Values.size()); ++i)
            written.Fields.push_back(std::move(entry.Values[i].Text));
        written.Fields.resize(languages);
    }
    return file;
}

void AddStates(const TTable& table, std::size_t languages, std::vector<TFileState>& states) {
    for (const TTableEntry& entry : table.Entries())
        for (std::size_t i = 1; i < std::min(languages, entry.Values.size()); ++i)
            if (const TTableValue& value = entry.Values[i]; value.Mark != TValueMark::None)
                states.push_back({table.Type(), static_cast<int>(i) + 1, entry.Key,
                                  std::string(NameOf(value.Mark)), value.Former});
}

TTable FromFile(const TFileTable& file) {
    TTable table(file.Type);
    for (const TFileEntry& entry : file.Entries) {
        TTableEntry read{entry.Key, {}};
        read.Values.reserve(entry.Fields.size());
        for (const std::string& field : entry.Fields)
            read.Values.push_back({field});
        table.Append(std::move(read));
    }
    return table;
}

}  // namespace

TFormSection ToSection(const TFormAddress& address, TLangTexts texts) {
    const std::size_t languages = texts.Languages.Items().size();
    TFormSection section{address, std::move(texts.Languages), {}, {}, std::move(texts.Extended)};
    for (TTable& table : texts.Tables) {
        AddStates(table, languages, section.States);
        if (!table.Entries().empty()) section.Tables.push_back(ToFile(std::move(table), languages));
    }
    for (TFileExtended& item : section.Extended)
        item.Values.resize(languages);
    return section;
}

TLangTexts FromSection(const TFormSection& section) {
    TLangTexts texts{section.Languages, {}, section.Extended};
    for (const TTableKind& kind : kTableKinds)
        texts.Tables.emplace_back(kind.Type);
    for (const TFileTable& table : section.Tables)
        texts.Tables[static_cast<std::size_t>(table.Type)] = FromFile(table);
    for (const TFileState& state : section.States) {
        TTable& table = texts.Tables[static_cast<std::size_t>(state.Type)];
        const int entry = table.Find(state.Key);
        if (entry >= 0) table.SetMark(entry, state.Place, ValueMarkOf(state.State), state.Former);
    }
    return texts;
}

}  // namespace tml

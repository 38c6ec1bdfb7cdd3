#include "scan/Duplicates.h"

#include <string_view>
#include <unordered_map>

namespace tml {

void VerifyAgainstExisting(TmlFoundSourceStrings& found, const TTable& existing, const TCallStyle& style,
                           const TStepDone& done) {
    std::unordered_map<std::string_view, TmlFoundSourceString*> firstRows;
    for (TmlFoundSourceString& row : found)
        firstRows.emplace(row.StrContent, &row);
    int count = 0;
    for (const TTableEntry& string : existing.Entries()) {
        if (done) done(count++);
        const auto row = firstRows.find(string.Base());
        if (row == firstRows.end()) continue;
        row->second->StrID = string.Key;
        row->second->Replacement = ReplacementText(style, string.Key, string.Base());
    }
}

void MergeDuplicates(TmlFoundSourceStrings& found, const TStepDone& done) {
    std::unordered_map<std::string_view, const TmlFoundSourceString*> firstRows;
    int count = 0;
    for (TmlFoundSourceString& row : found) {
        if (done) done(count++);
        const auto [first, isNew] = firstRows.emplace(row.StrContent, &row);
        if (isNew) continue;
        row.StrID = first->second->StrID;
        row.Replacement = first->second->Replacement;
    }
}

}  // namespace tml

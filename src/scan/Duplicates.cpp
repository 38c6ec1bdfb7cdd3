// One text gets one ID: that of the component where it holds the text, else that of the first row.
#include <string_view>
#include <unordered_map>

#include "scan/Scan.h"

namespace tml {

void VerifyAgainstExisting(TmlFoundSourceStrings& found, const std::vector<TExistingString>& existing,
                           const TCallStyle& style) {
    std::unordered_map<std::string_view, TmlFoundSourceString*> firstRows;
    for (TmlFoundSourceString& row : found)
        firstRows.emplace(row.StrContent, &row);
    for (const TExistingString& string : existing) {
        const auto row = firstRows.find(string.Text);
        if (row == firstRows.end()) continue;
        row->second->StrID = string.ID;
        row->second->Replacement = ReplacementText(style, string.ID, string.Text);
    }
}

void MergeDuplicates(TmlFoundSourceStrings& found) {
    std::unordered_map<std::string_view, const TmlFoundSourceString*> firstRows;
    for (TmlFoundSourceString& row : found) {
        const auto [first, isNew] = firstRows.emplace(row.StrContent, &row);
        if (isNew) continue;
        row.StrID = first->second->StrID;
        row.Replacement = first->second->Replacement;
    }
}

}  // namespace tml

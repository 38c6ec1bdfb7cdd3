#include "setup/Dictionaryconflicts.h"

#include <numeric>
#include <utility>

#include "base/Format.h"

namespace tml {
namespace {

enum TConflictColumn { ccLanguage, ccBase, ccTaken, ccOthers };

}  // namespace

TfrmDictionaryConflicts::TfrmDictionaryConflicts(std::vector<TLearnConflict> conflicts)
    : conflicts_(std::move(conflicts)) {
    Name = "frmDictionaryConflicts";
    Caption = "Several Translations";
    ActiveControl = "grConflicts";
    ClientWidth = 720;
    ClientHeight = 320;
    lblConflicts =
        "These texts are translated in more than one way. The dictionary has the translation that is taken; "
        "how often the forms have each one stands behind it.";
    grConflicts.Columns = {{.Caption = "Language", .Width = 90},
                           {.Caption = "Text", .Width = 190, .MarksBlanks = true},
                           {.Caption = "Taken", .Width = 190, .MarksBlanks = true},
                           {.Caption = "In the forms", .Width = 230, .MarksBlanks = true}};
    grConflicts.Cell = [this](int conflict, int column) { return Cell(conflict, column); };
    grConflicts.OnChange = [this] { Changed(); };
    std::vector<int> ids(conflicts_.size());
    std::iota(ids.begin(), ids.end(), 0);
    grConflicts.Assign(std::move(ids));
}

std::string TfrmDictionaryConflicts::Cell(int index, int column) const {
    const TLearnConflict& conflict = conflicts_[static_cast<std::size_t>(index)];
    switch (column) {
        case ccLanguage:
            return conflict.Language;
        case ccBase:
            return conflict.Base;
        case ccTaken:
            return conflict.Taken;
        case ccOthers:
        default:
            break;
    }
    std::string choices;
    for (const TLearnedChoice& choice : conflict.Choices)
        choices += Format("%s%s (%d)", choices.empty() ? "" : ", ", choice.Text, choice.Count);
    return choices;
}

}  // namespace tml

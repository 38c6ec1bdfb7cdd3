#include "setup/Setupstrings.h"

#include <unordered_set>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Modules.h"
#include "setup/Setuprun.h"

namespace tml {
namespace {

void FindIn(TContext& context, TScanMemory& memory, TFormSetup& form) {
    TFormRow* row = context.Rows.FormNames.FindFile(form.FileName);
    if (row == nullptr) return;
    const TModuleLease lease(context, form.FileName);
    form.Strings.emplace();
    ReplaceReviewed(context, memory, *row, [&](TFoundRows& rows) {
        form.Strings = StringsOf(rows);
        return false;
    });
}

/// What an ancestor's component gets, it has in them, too.
void FillHeirs(TSetupPlan& plan) {
    std::unordered_set<std::string> moving;  // upper-cased
    for (TFormSetup& form : plan.Forms) {
        if (moving.count(UpperCase(form.Ancestor)) > 0) form.FillsTables = true;
        if (form.CountTaken() > 0 || form.FillsTables) moving.insert(UpperCase(form.FormName));
    }
}

}  // namespace

void FindStrings(TContext& context, TScanMemory& memory, TSetupPlan& plan) {
    const TProgressEnd end(context.Dialogs());
    TOpenedMeanwhile opened(context);
    int done = 0;
    for (TFormSetup& form : plan.Forms) {
        if (!context.Dialogs().ShowProgress(Format("Scanning %s...", form.FormName), done++,
                                            static_cast<int>(plan.Forms.size())))
            throw EmlLangSilent();
        if (!form.IsReady() || form.Strings) continue;
        try {
            FindIn(context, memory, form);
        } catch (const EBadInput& error) {
            form.Refuse(error);
        }
    }
    FindInFamilies(context, memory, plan);
    FillHeirs(plan);
}

TSetupStrings StringsOf(const TFoundRows& rows) {
    TSetupStrings strings;
    for (const TFoundRow& row : rows)
        strings.push_back(
            {row.Record.Line + 1, row.Record.StrID, row.Record.StrContent, row.Record.Advice, row.IsTaken()});
    return strings;
}

void DecideRows(TFoundRows& rows, const TSetupStrings& decided, const std::string& fileName) {
    bool same = static_cast<std::size_t>(rows.Count()) == decided.size();
    for (int i = 0; same && i < rows.Count(); ++i) {
        const TSetupString& string = decided[static_cast<std::size_t>(i)];
        same = rows[i].Record.StrContent == string.Text;
        rows.Change(i).LeaveOut(!string.Taken);
    }
    if (!same)
        throw EBadInput(fileName, 0, "the source is not what it was when its strings were reviewed",
                        "Start the wizard again");
}

}  // namespace tml

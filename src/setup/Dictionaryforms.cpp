#include "setup/Dictionaryforms.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "base/Errors.h"
#include "core/Formfamilies.h"
#include "core/Modules.h"
#include "setup/Writablefile.h"
#include "translations/Formseries.h"

namespace tml {
namespace {

constexpr const char* kFillTitle = "Fill from Dictionary";

/// Whether an entry stands where it was planned for.
bool IsThere(const std::vector<TTable>& tables, const TDictionaryFill& fill) {
    const auto& entries = tables[static_cast<std::size_t>(fill.Table)].Entries();
    const auto index = static_cast<std::size_t>(fill.Entry);
    return index < entries.size() && entries[index].Key == fill.Key && entries[index].Base() == fill.Base;
}

void FillRow(TContext& context, TFormRow& row, const TFormFills& fills) {
    // One that is open is saved by the person, later.
    const bool wasOpen = IsFileOpen(context, row.FileName);
    bool isDone = false;
    WithTmlLang(context, row, TFormUse::Changes, [&](TmlCustomLang& lang) {
        if (!wasOpen) ExpectWritable(context, row);
        FillForm(lang, fills);
        isDone = true;
    });
    if (!isDone) throw EBadInput(fills.FileName, 0, "the form has no localization component any more");
}

std::string ProblemOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const EBadInput& error) {
        return error.what();
    }
    return {};
}

TFormTables TryRead(TContext& context, TFormRow& row) {
    TFormTables form{row.FormName, row.FileName, {}, {}};
    const bool wasOpen = IsFileOpen(context, row.FileName);
    const std::string problem = ProblemOf([&] {
        WithTmlLang(context, row, TFormUse::Reads, [&](TmlCustomLang& lang) {
            form = ReadForm(lang, row);
            if (!wasOpen) form.Hindrance = ProblemOf([&] { ExpectWritable(context, row); });
        });
    });
    form.Problem = problem;
    return form;
}

}  // namespace

TFormTables ReadForm(TmlCustomLang& lang, const TFormRow& row) {
    const auto dispatcher = lang.GetDispatcher();
    return {row.FormName, row.FileName,
            dispatcher != nullptr ? dispatcher->GetLangNames() : lang.GetLangNames(), lang.GetTables()};
}

std::vector<TFormTables> ReadForms(TContext& context, const std::vector<TFormRow*>& rows) {
    const TProgressEnd end(context.Dialogs());
    std::vector<TFormTables> forms;
    int done = 0;
    for (TFormRow* const row : rows) {
        if (!context.Dialogs().ShowProgress("Reading forms...", done++, static_cast<int>(rows.size())))
            throw EmlLangSilent();
        if (!row->HasComponent()) continue;
        TFormTables form = TryRead(context, *row);
        if (!form.Languages.Empty() || !form.Problem.empty()) forms.push_back(std::move(form));
    }
    return forms;
}

TStringList LanguagesOf(TContext& context, const std::vector<TFormRow*>& rows) {
    const auto most = std::max_element(rows.begin(), rows.end(), [](const auto* one, const auto* two) {
        return one->Component.NumLang < two->Component.NumLang;
    });
    if (most == rows.end() || !(*most)->HasComponent()) return {};
    return TryRead(context, **most).Languages;
}

void ExpectWritable(TContext& context, const TFormRow& row) {
    ExpectWritableFile(context, GetFormEditor(context, row.FormName)->GetFileName());
}

int PlaceToFill(const TFormTables& form, const std::string& language) {
    const int index = form.Languages.IndexOf(language);
    if (index < 0)
        throw EBadInput(form.FileName, 0, "the form has no language " + language,
                        "It has " + form.Languages.CommaText());
    if (index == 0)
        throw EBadInput(form.FileName, 0, language + " is the form's base language",
                        "Name one that it is translated to");
    return index + 1;
}

TDictionaryFiller::TDictionaryFiller(const TDictionary& dictionary, std::string fileName,
                                     TDictionaryLanguages languages, const TDictionaryOptions& options)
    : languages_(std::move(languages)), searches_(dictionary, std::move(fileName), options) {
    if (languages_.Translation.empty()) languages_.Translation = languages_.Language;
}

TFormFills TDictionaryFiller::Plan(const TFormTables& form) {
    TFormFills fills{form.FormName, form.FileName, PlaceToFill(form, languages_.Language), {}, {}};
    fills.Fills = PlanFill(form.Tables, fills.Place,
                           searches_.Between(languages_.Base.empty() ? form.Languages[0] : languages_.Base,
                                             languages_.Translation),
                           fills.Counts);
    return fills;
}

void FillForm(TmlCustomLang& lang, const TFormFills& fills) {
    std::vector<TTable> tables = lang.GetTables();
    for (const TDictionaryFill& fill : fills.Fills)
        if (!IsThere(tables, fill))
            throw EBadInput(fills.FileName, 0, "the form has changed since " + fill.Key + " was looked up",
                            "Fill it again");
    FillTables(tables, fills.Place, fills.Fills);
    lang.EditTables(tables);
}

TFailedFills FillForms(TContext& context, const std::vector<TFormFills>& forms) {
    TFailedFills failed;
    std::vector<TFormRow*> rows;
    std::map<std::string, const TFormFills*> byFile;
    for (const TFormFills& form : forms) {
        TFormRow* row = context.Rows.FormNames.FindFile(form.FileName);
        if (row == nullptr) row = context.Rows.ExternalFiles.FindFile(form.FileName);
        failed[form.FileName] = row == nullptr ? form.FileName + ": the form is not listed any more" : "";
        if (row == nullptr) continue;
        rows.push_back(row);
        byFile[row->FileName] = &form;
    }
    const auto error = ForEachForm(
        context, kFillTitle, AncestorsFirst(rows),
        [&](TFormRow& row) {
            const TFormFills& form = *byFile.at(row.FileName);
            try {
                FillRow(context, row, form);
                failed.erase(form.FileName);
            } catch (const EBadInput& problem) {
                failed[form.FileName] = problem.what();
                throw;
            }
        },
        nullptr, TOnFailure::GoOn);
    if (failed.empty() && error != nullptr) std::rethrow_exception(error);
    return failed;
}

void LearnForm(TDictionaryLearning& learning, const TFormTables& form, const std::string& base,
               const std::string& language) {
    const std::string& from = base.empty() ? form.Languages[0] : base;
    const int only = language.empty() ? 0 : PlaceToFill(form, language);
    for (int place = 2; place <= form.Languages.Count(); ++place)
        if (only == 0 || place == only) learning.Take(form.Tables, place, from, form.Languages[place - 1]);
}

}  // namespace tml

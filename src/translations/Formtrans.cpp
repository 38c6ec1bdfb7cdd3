#include "translations/Formtrans.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Formfamilies.h"
#include "core/Langsetup.h"
#include "core/Modules.h"
#include "tables/Translationfile.h"
#include "translations/Formseries.h"

namespace tml {
namespace {

TTransferReport OnForm(TContext& context, const std::string& formName, TFormUse use,
                       const std::function<TTransferReport(TmlCustomLang&)>& transfer) {
    TTransferReport report;
    TFormRow* row = context.Rows.Active().FindForm(formName);
    if (row == nullptr || row->FileName.empty() || row->Component.ClassName.empty()) return report;
    ExpectNoNamesakeOf(context, *row);
    WithTmlLang(context, *row, use, [&](TmlCustomLang& lang) {
        TStringList losses;
        lang.FollowLanguages([&](const TLanguageMoves& moves, TMovePhase phase) {
            losses = MoveHeirs(context, *row, moves, phase);
        });
        report = transfer(lang);
        for (const std::string& loss : losses)
            report.Dropped.Add(loss);
        if (use == TFormUse::Reads) return;
        row->Component.NumLang = lang.GetNumLang();
        context.Rows.Active().Touch();
    });
    return report;
}

std::vector<TFormRow*> Rows(TContext& context, bool translatedOnly) {
    std::vector<TFormRow*> rows;
    for (const auto& row : context.Rows.Active().Items())
        if (!translatedOnly || row->HasComponent()) rows.push_back(row.get());
    return rows;
}

bool HasTransferred(const std::pair<std::string, TTransferReport>& form) {
    const TTransferReport& report = form.second;
    return report.Taken > 0 || report.Kept > 0 || !report.Added.Empty() || !report.Dropped.Empty();
}

std::string FirstOf(const TStringList& forms) {
    constexpr int kMost = 5;
    std::string text;
    for (int i = 0; i < std::min(forms.Count(), kMost); ++i)
        text += (i == 0 ? "" : ", ") + forms[i];
    return forms.Count() > kMost ? text + Format(" and %d more", forms.Count() - kMost) : text;
}

/// The first forms of a file, by their projects.
std::string ContentOf(const ITranslationFile& file) {
    TStringList forms;
    for (const TFormAddress& form : file.Forms())
        forms.Add(form.Project.empty() ? form.Form : form.Project + '/' + form.Form);
    return forms.Empty() ? "it holds no form" : "it is of " + FirstOf(forms);
}

/// nullptr for a file that is not there.
std::unique_ptr<ITranslationFile> ReadTranslations(TContext& context, const std::string& fileName) {
    auto bytes = GetModuleServices(context)->GetFiles().ReadFile(fileName);
    return bytes ? OpenTranslationFile(*std::move(bytes), fileName) : nullptr;
}

/// By their upper-cased names.
std::unordered_set<std::string> TranslatedForms(TContext& context) {
    std::unordered_set<std::string> names;
    for (const TFormRows* list : context.Rows.Both())
        for (const auto& row : list->Items())
            if (row->HasComponent()) names.insert(UpperCase(row->FormName));
    return names;
}

}  // namespace

void ExpectNoNamesakeOf(TContext& context, const TFormRow& row) {
    std::vector<TFormRow*> others = context.Rows.FormNames.FindForms(row.FormName);
    if (context.Rows.ExternalFiles.Find(row.Id()) == &row)
        for (TFormRow* other : context.Rows.ExternalFiles.FindForms(row.FormName))
            others.push_back(other);
    for (const TFormRow* other : others)
        // A unit may stand in both lists, and in that of external files more than once.
        if (!SameText(other->FileName, row.FileName))
            throw EBadInput(row.FileName, 0,
                            "the form of " + other->FileName + " is named " + other->FormName + ", too",
                            "Give one of the two forms another name");
}

TTransferReport SaveFormToFile(TContext& context, const std::string& formName, const std::string& fileName,
                               const std::string& delimiter) {
    return OnForm(context, formName, TFormUse::Reads, [&](TmlCustomLang& lang) {
        return IsBinaryTranslation(fileName) ? lang.SaveAllToBinaryFile(fileName)
                                             : lang.SaveAllToFile(fileName, delimiter);
    });
}

TTransferReport LoadFormFromFile(TContext& context, const std::string& formName,
                                 const std::string& fileName) {
    return OnForm(context, formName, TFormUse::Changes, [&](TmlCustomLang& lang) {
        return IsBinaryTranslation(fileName) ? lang.LoadAllFromBinaryFile(fileName)
                                             : lang.LoadAllFromFile(fileName);
    });
}

TTransferReport MergeFormFromFile(TContext& context, const std::string& formName,
                                  const std::string& fileName) {
    return OnForm(context, formName, TFormUse::Changes,
                  [&](TmlCustomLang& lang) { return lang.MergeAllFromFile(fileName); });
}

TTransferReport LoadFormLanguage(TContext& context, const std::string& formName, const std::string& fileName,
                                 const std::string& languageName) {
    return OnForm(context, formName, TFormUse::Changes,
                  [&](TmlCustomLang& lang) { return lang.LoadLanguage(fileName, languageName); });
}

void TransferForms(TContext& context, const std::string& title, const std::vector<TFormRow*>& rows,
                   const std::function<TTransferReport(TFormRow&)>& transfer, TFormReports& reports) {
    const auto files = context.Host.Runtime->OpenTranslationFiles(ProjectNameOf(context));
    TFormReports done;
    const auto error = ForEachForm(
        context, title, rows, [&](TFormRow& row) { done.emplace_back(row.FormName, transfer(row)); },
        [&] { files->Commit(); });
    // Nobody is told of what has been taken back.
    std::move(done.begin(), done.end(), std::back_inserter(reports));
    if (error != nullptr) std::rethrow_exception(error);
}

std::string ProblemOfForeignFile(TContext& context, const std::string& fileName,
                                 const TFormReports& reports) {
    if (reports.empty() || std::any_of(reports.begin(), reports.end(), HasTransferred)) return {};
    const auto file = ReadTranslations(context, fileName);
    if (file == nullptr) return {};
    const TFormFinder finder(*file);
    const std::string project = ProjectNameOf(context);
    for (const auto& [form, report] : reports)
        if (finder.Find({project, form})) return {};
    return "the file holds nothing of these forms; " + ContentOf(*file);
}

std::string UnclaimedForms(TContext& context, const std::string& fileName) {
    const auto file = ReadTranslations(context, fileName);
    if (file == nullptr) return {};
    const auto translated = TranslatedForms(context);
    const std::string project = ProjectNameOf(context);
    TStringList others;
    for (const TFormAddress& form : file->Forms())
        if (SameText(form.Project, project) && !translated.contains(UpperCase(form.Form)))
            others.Add(form.Form);
    return others.Empty() ? std::string()
                          : Format(
                                "the file also holds %s, which the project has not (or which has no "
                                "component)",
                                FirstOf(others));
}

TStringList UnsavedForms(TContext& context, const TFormReports& reports) {
    TStringList unsaved;
    for (const auto& [form, report] : reports)
        if (const auto editor = GetFormEditor(context, form); editor != nullptr && editor->GetModified())
            unsaved.Add(form);
    return unsaved;
}

void SaveProjectToMLLFile(TContext& context, const std::string& fileName, const std::string& delimiter,
                          TFormReports& reports) {
    TransferForms(
        context, "Save Translations", Rows(context, true),
        [&](TFormRow& row) { return SaveFormToFile(context, row.FormName, fileName, delimiter); }, reports);
}

void SaveProjectToMLBFile(TContext& context, const std::string& fileName, TFormReports& reports) {
    SaveProjectToMLLFile(context, fileName, {}, reports);
}

void LoadProjFromFile(TContext& context, const std::string& fileName, bool merge, TFormReports& reports) {
    const auto load = merge ? MergeFormFromFile : LoadFormFromFile;
    TransferForms(
        context, merge ? "Merge Translations" : "Load Translations", AncestorsFirst(Rows(context, false)),
        [&](TFormRow& row) { return load(context, row.FormName, fileName); }, reports);
    if (const std::string others = UnclaimedForms(context, fileName); !others.empty())
        reports.emplace_back(FileNameOf(fileName), TTransferReport{}).second.Notes.Add(others);
}

std::string ProjectNameOf(TContext& context) {
    const auto project = GetActiveProject(context);
    return project == nullptr ? std::string() : WithExtension(FileNameOf(project->GetFileName()), "");
}

}  // namespace tml

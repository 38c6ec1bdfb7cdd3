#include "translations/Filecommands.h"

#include <algorithm>
#include <functional>
#include <optional>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Formfamilies.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "platform/Projectoptions.h"
#include "tables/Translationfile.h"
#include "translations/Filedelimiter.h"
#include "translations/Formseries.h"
#include "translations/Formtrans.h"
#include "translations/Propexport.h"
#include "translations/Translationdialogs.h"

namespace tml {
namespace {

constexpr const char* kNotTranslated = "Project or file is not translated!";
constexpr const char* kWhichLanguage =
    "The following languages are available in the selected file:\r\n%sPlease type the language name to "
    "load:";
constexpr const char* kNoLanguage = "The specified language doesn't exist in file!";

using TRows = std::vector<TFormRow*>;
using TTransferRow = std::function<TTransferReport(TFormRow&)>;

/// With all whether any row of the list has a component, else whether the one row has.
bool CheckTmlLang(const TFormRows& list, bool all, const TFormRow* row) {
    const auto& rows = list.Items();
    return all ? std::any_of(rows.begin(), rows.end(), [](const auto& one) { return one->HasComponent(); })
               : row->HasComponent();
}

bool IsTranslated(TContext& context, bool isThere) {
    if (!isThere) context.Dialogs().MessageDlg(kNotTranslated, TMsgDlgType::mtError, {mrOk});
    return isThere;
}

/// Of two and more rows those without a component get one.
bool CheckSelected(TContext& context, const TRows& rows) {
    if (rows.empty()) return false;
    return IsTranslated(context, rows.size() > 1 || CheckTmlLang(context.Rows.Active(), false, rows.front()));
}

bool CheckProject(TContext& context, const TFormRows& list) {
    return IsTranslated(context, CheckTmlLang(list, true, nullptr));
}

bool CheckProject(TContext& context) {
    return CheckProject(context, context.Rows.Active());
}

/// The file that the project's settings propose, "" for none.
std::string DefaultFile(TContext& context) {
    const auto settings = context.Host.Runtime->mlLangProjectSettings;
    return settings == nullptr
               ? std::string()
               : std::get<std::string>(settings->GetOptionValue("DefaultTranslationFileName"));
}

template <typename TDialog>
std::optional<std::string> Ask(TContext& context, TDialog& dialog, std::string& last,
                               const std::string& proposed) {
    if (!proposed.empty() || !last.empty()) dialog.Files = {proposed.empty() ? last : proposed};
    if (context.Dialogs().ShowModal(dialog) != mrOk || dialog.Files.empty()) return std::nullopt;
    last = dialog.Files.front();
    return last;
}

/// The person's choice of the kind carries over to the next command.
template <typename TDialog>
std::optional<std::string> AskOfBothKinds(TContext& context, TDialog dialog, std::string& last) {
    dialog.FilterIndex = context.Settings.Get().LastFilterIndex;
    auto file = Ask(context, dialog, last, DefaultFile(context));
    if (file) context.Settings.SetLastFilterIndex(dialog.FilterIndex);
    return file;
}

/// Where to save, and with which delimiter ("" for the binary kind).
struct TTarget {
    std::string FileName;
    std::string Delimiter;
};

std::optional<TTarget> TextTarget(TContext& context, const std::string& file, const char* otherDelimiter) {
    const std::string old = GetMLLFileDelimiter(context, file);
    std::string delimiter = old;
    if (!AskForDelimiter(context, old, file, delimiter, otherDelimiter)) return std::nullopt;
    return TTarget{file, delimiter};
}

std::optional<TTarget> AskForTarget(TContext& context, TFilesMemory& memory) {
    const auto file = AskOfBothKinds(context, SaveDialog(), memory.Saved);
    if (!file) return std::nullopt;
    if (IsBinaryTranslation(*file)) return TTarget{*file, {}};
    return TextTarget(context, *file, kOtherDelimiter);
}

/// Of the text kind; what the project proposes is meant for whole files.
std::optional<TTarget> AskForTextTarget(TContext& context, TFilesMemory& memory) {
    TSaveDialog dialog = SaveDialog();
    dialog.Filter = kTextTranslations;
    const auto file = Ask(context, dialog, memory.Saved, {});
    if (!file) return std::nullopt;
    ExpectTextKind(*file);
    return TextTarget(context, *file, kOtherDelimiterOfProperties);
}

/// What was done is told, even where a form has ended the command. source: the file that is loaded, "" for
/// what changes no form.
void Report(TContext& context, const std::string& source, const std::function<void(TFormReports&)>& work) {
    TFormReports reports;
    std::string problem;
    TAllSteps steps;
    steps.Try([&] {
        work(reports);
        if (!source.empty()) problem = ProblemOfForeignFile(context, source, reports);
    });
    if (!problem.empty())
        context.Dialogs().MessageDlg(source + ": " + problem, TMsgDlgType::mtError, {mrOk});
    else
        ShowReports(context.Dialogs(), reports,
                    source.empty() ? TStringList() : UnsavedForms(context, reports));
    steps.Finish();
}

void TransferSelected(TContext& context, const std::string& title, const std::string& source,
                      const TRows& rows, const TTransferRow& transfer) {
    Report(context, source, [&](TFormReports& reports) {
        const auto withComponent = [&](TFormRow& row) {
            if (!row.HasComponent()) context.Dialogs().HideProgress();
            InsertTmlLang(context, row);
            return transfer(row);
        };
        TransferForms(context, title, rows, withComponent, reports);
    });
}

using TLoadForm = TTransferReport (*)(TContext&, const std::string&, const std::string&);

void LoadSelected(TContext& context, TFilesMemory& memory, const std::string& title, TLoadForm load) {
    const TRows rows = SelectedRows(context);
    if (!CheckSelected(context, rows)) return;
    const auto file = AskOfBothKinds(context, OpenDialog(), memory.Opened);
    if (file)
        TransferSelected(context, title, *file, AncestorsFirst(rows),
                         [&](TFormRow& row) { return load(context, row.FormName, *file); });
}

void LoadWhole(TContext& context, TFilesMemory& memory, bool merge) {
    if (!CheckProject(context)) return;
    const auto file = AskOfBothKinds(context, OpenDialog(), memory.Opened);
    if (file)
        Report(context, *file,
               [&](TFormReports& reports) { LoadProjFromFile(context, *file, merge, reports); });
}

/// None where the person gives up, or names none that the file has.
std::optional<std::string> AskForLanguage(TContext& context, const TStringList& languages) {
    std::string answer = languages.Empty() ? std::string() : languages[languages.Count() - 1];
    const std::string prompt = Format(kWhichLanguage, languages.Text());
    if (!context.Dialogs().InputQuery("Load Language from File", prompt, answer)) return std::nullopt;
    if (Trim(answer).empty()) return std::nullopt;
    if (languages.IndexOf(answer) >= 0) return answer;
    context.Dialogs().MessageDlg(kNoLanguage, TMsgDlgType::mtError, {mrOk});
    return std::nullopt;
}

struct TSourceLanguage {
    std::string FileName;
    std::string Language;
};

std::optional<TSourceLanguage> AskForSource(TContext& context, TFilesMemory& memory) {
    TOpenDialog dialog = OpenDialog();
    dialog.Filter = kTextTranslations;
    const auto file = Ask(context, dialog, memory.Opened, DefaultFile(context));
    if (!file) return std::nullopt;
    const auto language =
        AskForLanguage(context, context.Host.Runtime->OpenTranslationFiles({})->GetLanguages(*file));
    return language ? std::optional(TSourceLanguage{*file, *language}) : std::nullopt;
}

void SaveProperties(TContext& context, TFilesMemory& memory, const TRows& rows) {
    TPropertyKinds kinds;
    if (PropListDialog(context, kinds) != mrOk) return;
    const auto target = AskForTextTarget(context, memory);
    if (!target) return;
    Report(context, {}, [&](TFormReports& reports) {
        const auto save = [&](TFormRow& row) {
            return SavePropsToFile(context, row, target->FileName, target->Delimiter, kinds);
        };
        TransferForms(context, "Save Properties", rows, save, reports);
    });
}

/// All, or the selected ones.
TRows ProjectForms(TContext& context, bool selectedOnly) {
    TRows rows;
    for (const auto& row : context.Rows.FormNames.Items())
        if (row->Selected || !selectedOnly) rows.push_back(row.get());
    return rows;
}

void SaveSelectedForms(TContext& context, TFilesMemory& memory) {
    const TRows rows = SelectedRows(context);
    if (!CheckSelected(context, rows)) return;
    const auto target = AskForTarget(context, memory);
    if (target)
        TransferSelected(context, "Save Translations", {}, rows, [&](TFormRow& row) {
            return SaveFormToFile(context, row.FormName, target->FileName, target->Delimiter);
        });
}

void LoadLanguageForSelected(TContext& context, TFilesMemory& memory) {
    const TRows rows = SelectedRows(context);
    if (!CheckSelected(context, rows)) return;
    const auto source = AskForSource(context, memory);
    if (source)
        TransferSelected(
            context, "Load Language", source->FileName, AncestorsFirst(rows), [&](TFormRow& row) {
                return LoadFormLanguage(context, row.FormName, source->FileName, source->Language);
            });
}

void SaveProject(TContext& context, TFilesMemory& memory) {
    if (!CheckProject(context)) return;
    const auto target = AskForTarget(context, memory);
    if (!target) return;
    Report(context, {}, [&](TFormReports& reports) {
        if (IsBinaryTranslation(target->FileName))
            SaveProjectToMLBFile(context, target->FileName, reports);
        else
            SaveProjectToMLLFile(context, target->FileName, target->Delimiter, reports);
    });
}

void LoadLanguageForProject(TContext& context, TFilesMemory& memory) {
    if (!CheckProject(context)) return;
    const auto source = AskForSource(context, memory);
    if (!source) return;
    TRows rows;
    for (const auto& row : context.Rows.Active().Items())
        rows.push_back(row.get());
    Report(context, source->FileName, [&](TFormReports& reports) {
        const auto load = [&](TFormRow& row) {
            return LoadFormLanguage(context, row.FormName, source->FileName, source->Language);
        };
        TransferForms(context, "Load Language", AncestorsFirst(rows), load, reports);
    });
}

}  // namespace

void sbSaveAllClick(TContext& context, TFilesMemory& memory, int tag) {
    if (tag == kProject)
        SaveProject(context, memory);
    else
        SaveSelectedForms(context, memory);
}

void sbLoadAllClick(TContext& context, TFilesMemory& memory, int tag) {
    if (tag == kProject || tag == kMergeProject)
        LoadWhole(context, memory, tag == kMergeProject);
    else if (tag == kSelectedForms)
        LoadSelected(context, memory, "Load Translations", LoadFormFromFile);
    else
        LoadSelected(context, memory, "Merge Translations", MergeFormFromFile);
}

void LoadLanguageforForms1Click(TContext& context, TFilesMemory& memory, int tag) {
    if (tag == kProject)
        LoadLanguageForProject(context, memory);
    else
        LoadLanguageForSelected(context, memory);
}

void Savepropertiestofile1Click(TContext& context, TFilesMemory& memory) {
    const TRows rows = ProjectForms(context, true);
    if (CheckSelected(context, rows)) SaveProperties(context, memory, rows);
}

void Savepropertiestofileforallforms1Click(TContext& context, TFilesMemory& memory) {
    if (CheckProject(context, context.Rows.FormNames))
        SaveProperties(context, memory, ProjectForms(context, false));
}

}  // namespace tml

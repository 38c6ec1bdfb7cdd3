#include "translations/Groupfiles.h"

#include <unordered_map>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Modules.h"
#include "tables/Translationfile.h"
#include "translations/Filedelimiter.h"
#include "translations/Formtrans.h"
#include "translations/Projmngsaskfilename.h"

namespace tml {
namespace {

/// The settings of the other mode keep what they were.
void Store(TExpertSettings& settings, const TfrmAsk4FileName& window) {
    settings.SetMultiProjUseTemplate(window.rbFileNameTemplate);
    if (window.rbFileNameTemplate) {
        settings.SetMultiProjTemplate(window.edTemplateText);
        settings.SetMultiProjFolder(window.edFolderName);
    } else {
        settings.SetMultiProjFileName(window.edFileName);
    }
}

/// The files of a group are open with it: the active one is that whose forms are listed.
void Activate(TContext& context, const std::string& projectFileName) {
    const auto active = GetActiveProject(context);
    if (active != nullptr && SameText(active->GetFileName(), projectFileName)) return;
    const auto group = GetActiveProjectGroup(context);
    const TCommandGate::TOwnCall call(context.Gate);
    for (int i = 0; group != nullptr && i < group->GetProjectCount(); ++i)
        if (const auto project = group->GetProject(i); SameText(project->GetFileName(), projectFileName))
            return group->SetActiveProject(project);
    throw EBadInput(projectFileName, 0, "the project is not one of the open group", "Open its group");
}

}  // namespace

void ExpectDistinctNames(const TStringList& projectFileNames) {
    std::unordered_map<std::string, std::string> known;
    for (const std::string& file : projectFileNames) {
        const std::string name = WithExtension(FileNameOf(file), "");
        const auto [first, isNew] = known.emplace(UpperCase(name), file);
        if (isNew) continue;
        throw EBadInput(
            first->second, 0,
            Format("%s is named %s, too: their forms would be one in a translation file", file, name),
            "Give one of them another name, or take each by itself, with a file of its own");
    }
}

bool AskForFileName(TContext& context, bool saving, const std::string& confirmFormat,
                    const std::string& projectName, std::string& fileName, std::string& delimiter) {
    TfrmAsk4FileName window(context, saving);
    if (context.Dialogs().ShowModal(window) != mrOk) return false;
    Store(context.Settings, window);
    fileName = window.FileName();
    const bool confirmed =
        !fileName.empty() && context.Dialogs().MessageDlg(Format(confirmFormat, FileNameOf(fileName)),
                                                          TMsgDlgType::mtWarning, {mrYes, mrNo}) == mrYes;
    if (!confirmed) return false;
    delimiter.clear();
    if (!saving || IsBinaryTranslation(fileName)) return true;
    const std::string parsed = GetParsedFileName(*context.Host.Clock, fileName, projectName);
    delimiter = GetMLLFileDelimiter(context, parsed);
    return AskForDelimiter(context, delimiter, parsed, delimiter);
}

void SaveProjectToFile(TContext& context, const std::string& projectFileName,
                       const std::string& translationFileName, const std::string& delimiter,
                       TFormReports& reports) {
    Activate(context, projectFileName);
    if (IsBinaryTranslation(translationFileName))
        SaveProjectToMLBFile(context, translationFileName, reports);
    else
        SaveProjectToMLLFile(context, translationFileName, delimiter, reports);
}

void LoadProjectFromFile(TContext& context, const std::string& projectFileName,
                         const std::string& translationFileName, TFormReports& reports) {
    Activate(context, projectFileName);
    LoadProjFromFile(context, translationFileName, false, reports);
    SaveFile(context, projectFileName);
}

}  // namespace tml

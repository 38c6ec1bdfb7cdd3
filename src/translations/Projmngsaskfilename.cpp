#include "translations/Projmngsaskfilename.h"

#include <array>
#include <utility>

#include "base/Files.h"
#include "base/Utf8.h"
#include "translations/Translationdialogs.h"

namespace tml {
namespace {

/// Every occurrence of a tag, in any letter case.
std::string Replaced(const std::string& text, const std::string& tag, const std::string& value) {
    const std::string upper = UpperCase(text);
    std::string replaced;
    std::size_t pos = 0;
    for (std::size_t found; (found = upper.find(tag, pos)) != std::string::npos; pos = found + tag.size())
        replaced += text.substr(pos, found - pos) + value;
    return replaced + text.substr(pos);
}

/// Up to the last dot.
std::string WithoutExtension(const std::string& name) {
    return name.substr(0, name.rfind('.'));
}

}  // namespace

std::string GetParsedFileName(IClock& clock, const std::string& fileNameTemplate,
                              const std::string& projectName) {
    const TDateTime now = clock.Now();
    const std::array<std::pair<const char*, std::string>, 7> tags = {{
        {"($PROJECT_NAME)", WithoutExtension(projectName)},
        {"($DAY)", std::to_string(now.Day)},
        {"($MONTH)", std::to_string(now.Month)},
        {"($YEAR)", std::to_string(now.Year)},
        {"($HOUR)", std::to_string(now.Hour)},
        {"($MINUTE)", std::to_string(now.Minute)},
        {"($SECOND)", std::to_string(now.Second)},
    }};
    std::string name = fileNameTemplate;
    for (const auto& [tag, value] : tags)
        name = Replaced(name, tag, value);
    return name;
}

TfrmAsk4FileName::TfrmAsk4FileName(TContext& context, bool saving) : context_(context), saving_(saving) {
    Name = "frmAsk4FileName";
    Caption = "Translation file name";
    const TSettingValues& settings = context.Settings.Get();
    rbFileNameTemplate = settings.MultiProjUseTemplate;
    rbOneFile4All = !rbFileNameTemplate;
    const auto preset = [](std::string& box, const std::string& value) {
        if (!value.empty()) box = value;
    };
    preset(edFileName, settings.MultiProjFileName);
    preset(edTemplateText, settings.MultiProjTemplate);
    preset(edFolderName, settings.MultiProjFolder);
    rbMLL = SameText(ExtensionOf(edTemplateText), ".mll");
    rbMLB = SameText(ExtensionOf(edTemplateText), ".mlb");
    CheckOK();
}

bool TfrmAsk4FileName::IsEnabled(TFileNameMode group) const {
    return group == fmTemplate ? rbFileNameTemplate : rbOneFile4All;
}

void TfrmAsk4FileName::rbOneFile4AllClick() {
    rbOneFile4All = true;
    rbFileNameTemplate = false;
    CheckOK();
}

void TfrmAsk4FileName::rbFileNameTemplateClick() {
    rbOneFile4All = false;
    rbFileNameTemplate = true;
    CheckOK();
}

void TfrmAsk4FileName::edFileNameChange(const std::string& text) {
    edFileName = text;
    CheckOK();
}

void TfrmAsk4FileName::edTemplateTextChange(const std::string& text) {
    edTemplateText = text;
    CheckOK();
}

void TfrmAsk4FileName::edFolderNameChange(const std::string& text) {
    edFolderName = text;
    CheckOK();
}

void TfrmAsk4FileName::rbMLLClick() {
    rbMLL = true;
    rbMLB = false;
    edTemplateTextChange(WithExtension(edTemplateText, ".mll"));
}

void TfrmAsk4FileName::rbMLBClick() {
    rbMLL = false;
    rbMLB = true;
    edTemplateTextChange(WithExtension(edTemplateText, ".mlb"));
}

void TfrmAsk4FileName::btBrowseForFileClick() {
    const auto ask = [this](auto dialog) {
        dialog.Caption = "Select file name...";
        dialog.FilterIndex = context_.Settings.Get().LastFilterIndex;
        if (!edFileName.empty()) dialog.Files = {edFileName};
        if (context_.Dialogs().ShowModal(dialog) != mrOk || dialog.Files.empty()) return;
        edFileNameChange(dialog.Files.front());
        context_.Settings.SetLastFilterIndex(dialog.FilterIndex);
    };
    if (saving_)
        ask(SaveDialog());
    else
        ask(OpenDialog());
}

void TfrmAsk4FileName::btBrowseFolderClick() {
    TSelectDirectory dialog;
    dialog.Name = "SelectDirectory";
    dialog.Caption = "Select folder...";
    dialog.Folder = edFolderName;
    if (context_.Dialogs().ShowModal(dialog) == mrOk) edFolderNameChange(dialog.Folder);
}

std::string TfrmAsk4FileName::FileName() const {
    return rbFileNameTemplate ? JoinPath(edFolderName, "") + edTemplateText : edFileName;
}

bool TfrmAsk4FileName::IsFile(const std::string& name) const {
    const auto info = context_.Host.Files->Stat(name);
    return info && !info->IsFolder;
}

void TfrmAsk4FileName::CheckOK() {
    if (rbFileNameTemplate)
        btOKEnabled = !edTemplateText.empty();
    else
        btOKEnabled = !edFileName.empty() && (saving_ || IsFile(edFileName));
    Changed();
}

}  // namespace tml

#include "editors/Mldialogreg.h"

#include "base/Format.h"
#include "base/Utf8.h"
#include "windows/Filedialogs.h"

namespace tml {
namespace {

const std::vector<std::string> kDialogs = {
    "TmlOpenDialog", "TmlSaveDialog",    "TmlOpenPictureDialog", "TmlSavePictureDialog",
    "TmlFontDialog", "TmlColorDialog",   "TmlPrintDialog",       "TmlPrinterSetupDialog",
    "TmlFindDialog", "TmlReplaceDialog", "TmlBrowseForFolder",   "TmlTaskDialog",
};

std::string TextOf(IOTAComponent& component, const char* property) {
    const auto value = component.GetPropValue(property);
    return value && value->Kind == TFormValueKind::String ? value->Text : std::string();
}

void SetUp(TFileDialog& dialog, IOTAComponent& component) {
    dialog.Caption = TextOf(component, "Title");
    dialog.DefaultExt = TextOf(component, "DefaultExt");
    dialog.Filter = TextOf(component, "Filter");
    if (const std::string file = TextOf(component, "FileName"); !file.empty()) dialog.Files = {file};
}

template <typename TDialog>
void ShowFileDialog(IDialogs& dialogs, IOTAComponent& component) {
    TDialog dialog;
    SetUp(dialog, component);
    dialogs.ShowModal(dialog);
}

void ShowFolderDialog(IDialogs& dialogs, IOTAComponent& component) {
    TSelectDirectory dialog;
    dialog.Caption = TextOf(component, "Title");
    dialog.Folder = TextOf(component, "Folder");
    dialogs.ShowModal(dialog);
}

void ShowTaskDialog(IDialogs& dialogs, IOTAComponent& component) {
    const std::string title = TextOf(component, "Title");
    const std::string text = TextOf(component, "Text");
    dialogs.MessageDlg(title.empty() ? text : title + "\r\n" + text, TMsgDlgType::mtInformation, {mrOk});
}

/// The dialogs that there are outside of a running program.
struct TShownDialog {
    const char* ClassName;
    void (*Show)(IDialogs&, IOTAComponent&);
};
constexpr TShownDialog kShown[] = {
    {"TmlOpenDialog", ShowFileDialog<TOpenDialog>}, {"TmlOpenPictureDialog", ShowFileDialog<TOpenDialog>},
    {"TmlSaveDialog", ShowFileDialog<TSaveDialog>}, {"TmlSavePictureDialog", ShowFileDialog<TSaveDialog>},
    {"TmlBrowseForFolder", ShowFolderDialog},       {"TmlTaskDialog", ShowTaskDialog},
};

}  // namespace

std::string TmlDialogEditor::GetVerb(int index) {
    return index == 0 ? Format("Test %s...", component_->GetComponentType()) : std::string();
}

void TmlDialogEditor::ExecuteVerb(int index) {
    if (index != 0) return;
    host_->Dialogs().MessageDlg("This will execute test for the selected dialog.", TMsgDlgType::mtInformation,
                                {mrOk});
    Execute();
}

void TmlDialogEditor::Execute() {
    const std::string className = component_->GetComponentType();
    for (const TShownDialog& dialog : kShown)
        if (SameText(dialog.ClassName, className)) return dialog.Show(host_->Dialogs(), *component_);
    host_->Dialogs().MessageDlg(Format("%s is shown by the running program only.", className),
                                TMsgDlgType::mtInformation, {mrOk});
}

void RegisterMldialogs(IRegistration& registration, const TEditorHostPtr& host) {
    registration.RegisterComponents("mlDialogs", kDialogs);
    for (const std::string& dialog : kDialogs)
        registration.RegisterComponentEditor(
            dialog, [host](const std::shared_ptr<IOTAComponent>& component, IDesigner&) {
                return std::make_unique<TmlDialogEditor>(host, component);
            });
}

}  // namespace tml

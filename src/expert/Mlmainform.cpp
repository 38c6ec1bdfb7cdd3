#include "expert/Mlmainform.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Utf8.h"
#include "core/Formrows.h"
#include "core/Modules.h"
#include "source/Language.h"
#include "windows/Shortcuts.h"

namespace tml {
namespace {

constexpr TShortCut kEnter = 0x0D;
constexpr int kAlwaysAvailable = 113;
constexpr int kNeedsComponent = 112;

struct TMenuRow {
    TCommandPlaces Place;
    const char* Name;
    const char* Caption;
};
constexpr std::array kMainMenu{TMenuRow{plFile, "File1", "&File"}, TMenuRow{plTools, "Tools1", "&Tools"},
                               TMenuRow{plHelp, "Help1", "&Help"}};

/// Items of the main menu and of the popup menu are told apart by their numbers.
constexpr char kMainNumber = '1';
constexpr char kPopupNumber = '2';

std::shared_ptr<TMenuItem> MakeItem(std::string name, std::string_view caption) {
    auto item = std::make_shared<TMenuItem>();
    item->Name = std::move(name);
    item->Caption = caption;
    return item;
}

}  // namespace

TfrmmlLang::TfrmmlLang(TContext& context, TSubjects& subjects, std::function<void()> onClosed)
    : Context(context),
      Subjects(subjects),
      lvFormNames(context.Rows.FormNames),
      lvExternalFiles(context.Rows.ExternalFiles),
      MainMenu(MakeItem("MainMenu1", "")),
      pmEditor(MakeItem("pmEditor", "")),
      onClosed_(std::move(onClosed)) {
    Name = "frmmlLang";
    Caption = "TmlLang Expert (VCL Edition)";
    ClientWidth = 700;
    ClientHeight = 400;
    Context.Rows = TFormsList();
    Context.OnRowsChanged = [this] { Changed(); };
    Context.BringToTop = [this] { Context.Dialogs().Show(Parent != nullptr ? *Parent : *this); };
    BuildMenus();
    odExternalFile.Name = "odExternalFile";
    odExternalFile.FileMustExist = true;
    odExternalFile.AllowMultiSelect = true;
    Menu = MainMenu;
    TfrmmlLang::FormShow();
    CheckEnableActions();
}

TfrmmlLang::~TfrmmlLang() {
    Subjects.IDs.BadIDs.reset();
    Subjects.Phrases.Found.reset();
    Subjects.Dictionary.Tool.reset();
    for (TFormRows* list : Context.Rows.Both())
        ClearRows(*list);
    Context.OnRowsChanged = nullptr;
    Context.BringToTop = nullptr;
    *isAlive_ = false;
}

void TfrmmlLang::BuildMenus() {
    for (const TMenuRow& row : kMainMenu) {
        MainMenu->Items.push_back(MakeItem(row.Name, row.Caption));
        for (const TCommand& command : AllCommands())
            if ((command.Places & row.Place) != 0) Place(command, *MainMenu->Items.back(), kMainNumber);
    }
    for (const TCommand& command : AllCommands()) {
        if ((command.Places & plPopup) != 0) Place(command, *pmEditor, kPopupNumber);
        if ((command.Places & plToolBar) != 0)
            ToolBar.push_back(Build(command, "tb" + std::string(command.Name), true));
    }
}

void TfrmmlLang::Place(const TCommand& command, TMenuItem& menu, char number) {
    TMenuItem& place = command.SubMenu == TSubMenu::None ? menu : SubMenu(menu, command.SubMenu, number);
    place.Items.push_back(Build(command, std::string(command.Name) + number, false));
}

TMenuItem& TfrmmlLang::SubMenu(TMenuItem& menu, TSubMenu subMenu, char number) {
    const auto rows = AllSubMenus();
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const TSubMenuRow& candidate) { return candidate.SubMenu == subMenu; });
    const std::string name = std::string(row->Name) + number;
    const auto found = std::find_if(menu.Items.begin(), menu.Items.end(),
                                    [&](const auto& item) { return item->Name == name; });
    if (found != menu.Items.end()) return **found;
    menu.Items.push_back(MakeItem(name, row->Caption));
    if (row->PascalOnly) pascalOnly_.push_back(menu.Items.back());
    return *menu.Items.back();
}

std::shared_ptr<TMenuItem> TfrmmlLang::Build(const TCommand& command, const std::string& name,
                                             bool isButton) {
    auto item = MakeItem(name, isButton ? command.ButtonCaption : command.Caption);
    item->ShortCut = isButton ? TShortCut{0} : TextToShortCut(command.ShortCut);
    item->Hint = isButton ? command.ButtonHint : command.Hint;
    item->Tag = command.Tag;
    item->Enabled = command.IsBuilt();
    // In a menu it says what is to come, a button has to be worth its place.
    item->Visible = command.IsBuilt() || !isButton;
    if (command.Entries == nullptr)
        item->OnClick = [this, &command] { Execute(command); };
    else
        AddEntries(command, *item);
    if (command.PascalOnly) pascalOnly_.push_back(item);
    built_.push_back({&command, item, isButton});
    return item;
}

void TfrmmlLang::AddEntries(const TCommand& command, TMenuItem& item) {
    int entry = 0;
    for (const std::string& caption : command.Entries(*Context.Host.Runtime)) {
        item.Items.push_back(MakeItem(item.Name + "_" + std::to_string(entry), caption));
        item.Items.back()->OnClick = [this, &command, entry] { Execute(command, entry); };
        ++entry;
    }
}

void TfrmmlLang::FormShow() {
    SetColumnWidths(lvFormNames, Context.Settings.Get().ColumnWidths);
}

void TfrmmlLang::FormClose() {
    TAllSteps steps;
    steps.Try([this] { Context.Settings.SetColumnWidths(ColumnWidthsText(lvFormNames)); });
    // The handler may free this window, itself included: nothing of it is touched afterwards.
    steps.Try([onClosed = onClosed_] { onClosed(); });
    steps.Finish();
}

void TfrmmlLang::CheckEnableActions() {
    const TFormRow* selected = Context.Rows.Active().FirstSelected();
    for (const TBuilt& built : built_) {
        const int tag = built.Command->Tag;
        if (built.Command->IsAvailable != nullptr) built.Item->Enabled = built.Command->IsAvailable(Context);
        if (!built.Command->IsBuilt() || tag <= 0) continue;
        if (!built.IsButton && tag == kAlwaysAvailable) continue;
        const bool needsComponent = !built.IsButton && tag == kNeedsComponent;
        built.Item->Enabled = selected != nullptr && (!needsComponent || selected->HasComponent());
    }
    if (selected != nullptr) Context.ComponentName = selected->Component.ComponentName;
    ShowLanguageItems();
    for (const TBuilt& built : built_)
        if (built.Command->OfExternalFiles)
            built.Item->Visible = Context.Rows.Page == TFormsPage::ExternalFiles;
    Changed();
}

void TfrmmlLang::ShowLanguageItems() {
    const TFormRows& list = Context.Rows.Active();
    const TFormRow* deciding = list.FirstSelected();
    if (deciding == nullptr && list.Count() > 0) deciding = list.Items().front().get();
    if (deciding == nullptr) return;
    for (const auto& item : pascalOnly_)
        item->Visible = !LanguageOf(deciding->FileName).IsCPPSource;
}

void TfrmmlLang::UpdateStatusBar() {
    tml::UpdateStatusBar(Context);
    Changed();
}

void TfrmmlLang::lvFormNamesColumnClick(int column) {
    TAllSteps steps;
    steps.Try([&] { SortRows(Context, column, -Context.Settings.Get().SortOrder); });
    Changed();
    steps.Finish();
}

void TfrmmlLang::lvFormNamesChange() {
    DeselectHidden();
    CheckEnableActions();
}

void TfrmmlLang::lvFormNamesKeyDown(TShortCut key) {
    if (key == kEnter) FindCommand("Translate")->Click();
}

void TfrmmlLang::SelectAll1Click() {
    TFormRows& list = Context.Rows.Active();
    for (const auto& row : list.Items())
        row->Selected = true;
    list.Touch();
    lvFormNamesChange();
}

bool TfrmmlLang::IsShown(int row) const {
    if (Filter.empty()) return true;
    const TFormRow& form = *lvFormNames.Items()[static_cast<std::size_t>(row)];
    const std::string folded = FoldCase(Filter);
    const auto has = [&](const std::string& text) { return Contains(FoldCase(text), folded); };
    return has(form.FormName) || has(form.UnitName) || has(FileNameOf(form.FileName));
}

void TfrmmlLang::SetFilter(const std::string& text) {
    Filter = text;
    lvFormNamesChange();
}

void TfrmmlLang::DeselectHidden() {
    for (int row = 0; row < lvFormNames.Count(); ++row)
        if (!IsShown(row)) lvFormNames.Row(row).Selected = false;
    lvFormNames.Touch();
}

bool TfrmmlLang::HasDesignWidths() const {
    return ColumnWidthsText(lvFormNames) == ColumnWidthsText(TFormsList().FormNames);
}

void TfrmmlLang::StayOnTop1Click() {
    StayOnTop = !StayOnTop;
    SetChecked("StayOnTop", StayOnTop);
}

void TfrmmlLang::Dockable1Click() {
    Dockable = !Dockable;
    SetChecked("Dockable", Dockable);
}

void TfrmmlLang::HelpTopics1Click() {
    Context.Dialogs().ShowHelp(Name);
}

void TfrmmlLang::pcFormsListChange(TFormsPage page) {
    Context.Rows.Page = page;
    CheckEnableActions();
    UpdateStatusBar();
}

void TfrmmlLang::tbAddExternalFileClick() {
    odExternalFile.DefaultExt = "pas";
    odExternalFile.Filter = "Pascal Files(*.pas)|*.pas";
    if (Context.Dialogs().ShowModal(odExternalFile) != mrOk) return;
    for (const std::string& fileName : odExternalFile.Files)
        AddExternalFile(fileName);
    Context.BringToTop();
    CheckEnableActions();
    UpdateStatusBar();
}

void TfrmmlLang::tbRemoveExternalFileClick() {
    TStringList kept;
    for (const std::string& fileName : Context.ExternalFiles.Files())
        if (const TFormRow* row = lvExternalFiles.FindFile(fileName); row == nullptr || !row->Selected)
            kept.Add(fileName);
    TAllSteps steps;
    steps.Try([&] { Context.ExternalFiles.SetFiles(kept); });
    steps.Try([&] { ListExternalFiles(Context); });
    steps.Finish();
}

void TfrmmlLang::AddExternalFile(const std::string& fileName) {
    const bool wasOpen = IsFileOpen(Context, fileName);
    OpenFile(Context, fileName, true);
    // Where the list cannot be stored, it is shown as it stands.
    TAllSteps steps;
    steps.Try([&] { Context.ExternalFiles.Add(fileName); });
    steps.Try([&] { CreateExternalListItem(fileName); });
    if (!wasOpen) CloseFile(Context, fileName);
    steps.Finish();
}

void TfrmmlLang::CreateExternalListItem(const std::string& fileName) {
    TClosedForms closed(Context.Host);
    AddExternalRow(Context, closed, fileName);
}

void TfrmmlLang::SetChecked(std::string_view commandName, bool checked) {
    for (const TBuilt& built : built_)
        if (built.Command->Name == commandName) built.Item->Checked = checked;
    Changed();
}

TMenuItem* TfrmmlLang::FindCommand(std::string_view name) const {
    const auto found = std::find_if(built_.begin(), built_.end(), [&](const TBuilt& built) {
        return built.Command->Name == name && !built.IsButton;
    });
    return found == built_.end() ? nullptr : found->Item.get();
}

void TfrmmlLang::Run(std::string_view commandName) {
    TMenuItem* item = FindCommand(commandName);
    if (item == nullptr || !item->Enabled)
        throw std::invalid_argument("no command that can be run now: " + std::string(commandName));
    item->Click();
}

void TfrmmlLang::Execute(const TCommand& command, int entry) {
    if (!command.IsBuilt()) return;
    // The window may be gone when the handler returns, the context is not.
    TContext& context = Context;
    const std::shared_ptr<bool> isAlive = isAlive_;
    const TCommandGate::TCommand running(context.Gate);
    const auto run = [&] {
        if (command.OfWindow != nullptr)
            (this->*command.OfWindow)();
        else if (command.OnEntry != nullptr)
            command.OnEntry(context, entry);
        else
            command.Handler(context, Subjects);
    };
    RunCommand(run, [this, isAlive] {
        if (!*isAlive) return;
        CheckEnableActions();
        UpdateStatusBar();
    });
}

void RunCommand(const std::function<void()>& command, const std::function<void()>& afterwards) {
    TAllSteps steps;
    steps.Try([&] {
        try {
            command();
        } catch (const EmlLangSilent&) {
            // The command has ended without a message, as it wanted to.
        }
    });
    afterwards();
    steps.Finish();
}

}  // namespace tml

#include "editors/Mlpropeditors.h"

#include <algorithm>
#include <array>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "editors/Mllangcomboeditor.h"
#include "platform/Referable.h"
#include "setup/Excludeforms.h"
#include "tables/Extendedtable.h"
#include "translations/Formlanguages.h"

namespace tml {
namespace {

constexpr const char* kCustomLang = "TmlCustomLang";
constexpr const char* kDispatcher = "TmlLangDispatcher";
constexpr const char* kLinked = "TmlLangLinked";
constexpr const char* kNoLang = "Unable to locate TmlLang component!";
constexpr const char* kAskClear = "This will delete all translation data stored in component! Continue?";
constexpr std::string_view kAskExclude =
    "Click \"Yes\" to exclude %s from translations.\r\nClick \"Yes to All\" to exsclude all %s components "
    "from "
    "translations.\r\nClick \"Cancel\" to cancel this action.";

bool IsA(const TEditorHost& host, IOTAComponent& component, const char* ancestor) {
    return host.Runtime().InheritsFrom(component.GetComponentType(), ancestor);
}

/// One step of undo.
void DoAs(const TEditorHost& host, const std::string& title, const std::function<void()>& work) {
    const auto scope = host.Host.Services->GetModuleServices()->BeginCommand(title);
    work();
    scope->Commit();
}

/// OtherStrings is asked for twice, on purpose: the second test never counts.
TStringsType TableOf(std::string_view property) {
    struct TNamed {
        std::string_view Property;
        TStringsType Type;
    };
    using enum TStringsType;
    constexpr std::array kTables{
        TNamed{"Hints", stHints},
        TNamed{"DisplayLabels", stDisplayLabels},
        TNamed{"Fonts", stFonts},
        TNamed{"MultiLines", stMultiLines},
        TNamed{"DlgsCaptions", stDlgsCaptions},
        TNamed{"Strings", stStrings},
        TNamed{"OtherStrings", stOtherStrings},
        TNamed{"Locales", stLocales},
        TNamed{"Collections", stCollections},
        TNamed{"CharSets", stCharSets},
        TNamed{"OtherStrings", stOtherStrings},
        TNamed{"ListView_TreeView_Items", stListView_TreeView_Items},
    };
    const auto* const found = std::find_if(kTables.begin(), kTables.end(),
                                           [&](const TNamed& named) { return named.Property == property; });
    return found == kTables.end() ? stCaptions : found->Type;
}

}  // namespace

// --- localization components

struct TTranslationsEditor::TVerb {
    const char* Caption;
    void (TTranslationsEditor::*Execute)();  ///< nullptr for one that only opens a sub-menu
};

const TTranslationsEditor::TVerb TTranslationsEditor::kVerbs[] = {
    {"Translation Editor...", &TTranslationsEditor::OpenEditor},
    {"Update Translations", &TTranslationsEditor::UpdateTranslations},
    {"Clear Translations", &TTranslationsEditor::ClearTranslations},
    {"Ignore Removals", &TTranslationsEditor::ToggleIgnoreRemovals},
    {"-", nullptr},
    {"Translate source", nullptr},
};

namespace {

enum TVerbIndex { veIgnoreRemovals = 3, veTranslateSource = 5 };

}  // namespace

TTranslationsEditor::TTranslationsEditor(TEdited edited)
    : edited_(std::move(edited)), lang_(edited_.Host->Runtime().AsCustomLang(edited_.Component)) {
    if (lang_ == nullptr)
        throw EBadInput("", 0, edited_.Component->GetName() + " is no localization component");
}

int TTranslationsEditor::GetVerbCount() {
    return static_cast<int>(std::size(kVerbs));
}

std::string TTranslationsEditor::GetVerb(int index) {
    return kVerbs[index].Caption;
}

void TTranslationsEditor::ExecuteVerb(int index) {
    if (const auto execute = kVerbs[index].Execute) (this->*execute)();
}

void TTranslationsEditor::PrepareItem(int index, TMenuItem& item) {
    if (index == veIgnoreRemovals) item.Checked = lang_->GetIgnoreRemovals();
    if (index != veTranslateSource) return;
    item.Items.clear();
    AddTranslateItem(item, "Source", "Translatesource");
    if (IsPascalUnit()) AddTranslateItem(item, "CONST Declaration", "TranslateConst");
}

void TTranslationsEditor::OpenEditor() {
    if (!edited_.Host->Runtime().TransEditorDlg(*lang_, {.IsLast = true}, edited_.Host->OnChangeStrID))
        return;
    edited_.Designer.Modified();
    lang_->TranslationsEdited();
}

void TTranslationsEditor::UpdateTranslations() {
    TStringList notes;
    DoAs(*edited_.Host, "Update Translations", [&] {
        notes = lang_->BuildList();
        edited_.Designer.Modified();
    });
    if (!notes.Empty()) edited_.Host->Dialogs().MessageDlg(notes.Text(), TMsgDlgType::mtInformation, {mrOk});
}

void TTranslationsEditor::ClearTranslations() {
    if (edited_.Host->Dialogs().MessageDlg(kAskClear, TMsgDlgType::mtWarning, {mrYes, mrNo}) != mrYes) return;
    DoAs(*edited_.Host, "Clear Translations", [&] {
        lang_->ClearTranslations();
        edited_.Designer.Modified();
    });
}

void TTranslationsEditor::ToggleIgnoreRemovals() {
    DoAs(*edited_.Host, "Ignore Removals", [&] { lang_->SetIgnoreRemovals(!lang_->GetIgnoreRemovals()); });
}

bool TTranslationsEditor::IsPascalUnit() const {
    const auto module = edited_.Host->Host.Services->GetModuleServices()->FindFormModule(
        edited_.Designer.GetRoot()->GetName());
    return module != nullptr && SameText(ExtensionOf(module->GetFileName()), ".pas");
}

void TTranslationsEditor::AddTranslateItem(TMenuItem& item, const std::string& caption,
                                           const std::string& command) {
    auto sub = std::make_shared<TMenuItem>();
    sub->Caption = caption;
    sub->OnClick = [host = edited_.Host, command] {
        if (host->Expert == nullptr) return;
        try {
            host->Expert->ShowExpert();
        } catch (const EmlLangSilent&) {
            return;
        }
        if (host->Expert->Rows.FormNames.FirstSelected() != nullptr) host->RunCommand(command);
    };
    item.Items.push_back(std::move(sub));
}

std::vector<TPropertyAttribute> TmlStringsProperty::GetAttributes() {
    return {TPropertyAttribute::paMultiSelect, TPropertyAttribute::paDialog};
}

void TmlStringsProperty::Edit() {
    const auto lang = edited_.Host->Runtime().AsCustomLang(edited_.Component);
    const TTransEditorPlace place{TableOf(name_), -1};
    if (edited_.Host->Runtime().TransEditorDlg(*lang, place, edited_.Host->OnChangeStrID))
        edited_.Designer.Modified();
}

std::vector<TPropertyAttribute> TExtendedTranslationsProperty::GetAttributes() {
    return {TPropertyAttribute::paMultiSelect, TPropertyAttribute::paDialog};
}

void TExtendedTranslationsProperty::Edit() {
    const auto lang = edited_.Host->Runtime().AsCustomLang(edited_.Component);
    if (edited_.Host->Runtime().TransEditorDlg(*lang, {kExtendedTable, -1}, edited_.Host->OnChangeStrID))
        edited_.Designer.Modified();
}

// --- dispatchers, combos, the active language

void TDispatcherEditor::Edit() {
    bool goesOn = true;
    for (const char* const property : {"LangNames", "LanguageInfos"})
        if (goesOn) EditProperty(property, goesOn);
}

void TDispatcherEditor::EditProperty(const std::string& property, bool& goesOn) {
    const auto dispatcher = edited_.Host->Runtime().AsDispatcher(edited_.Component);
    if (!SameText(property, dispatcher != nullptr ? "LANGNAMES" : "LanguageInfos")) return;
    goesOn = false;
    if (dispatcher == nullptr)
        TComboConfigurationProperty(edited_).Edit();
    else if (edited_.Host->Expert != nullptr && EditDispatcherLanguages(*edited_.Host->Expert, *dispatcher))
        edited_.Designer.Modified();
}

std::vector<TPropertyAttribute> TComboConfigurationProperty::GetAttributes() {
    return {TPropertyAttribute::paMultiSelect, TPropertyAttribute::paDialog};
}

void TComboConfigurationProperty::Edit() {
    if (EditComboSettings(*edited_.Host, *edited_.Component)) edited_.Designer.Modified();
}

std::vector<TPropertyAttribute> TActiveLanguageProperty::GetAttributes() {
    return {TPropertyAttribute::paMultiSelect, TPropertyAttribute::paRevertable,
            TPropertyAttribute::paValueList};
}

void TActiveLanguageProperty::GetValues(const std::function<void(const std::string&)>& add) {
    IMlRuntime& runtime = edited_.Host->Runtime();
    const auto lang = runtime.AsCustomLang(edited_.Component);
    const auto dispatcher = lang == nullptr ? runtime.AsDispatcher(edited_.Component) : lang->GetDispatcher();
    ILanguages* const languages =
        dispatcher != nullptr ? static_cast<ILanguages*>(dispatcher.get()) : lang.get();
    if (languages == nullptr) return;
    for (const std::string& name : languages->GetLangNames())
        add(name);
}

// --- exclusions

std::vector<TPropertyAttribute> TExcludePropertyEditor::GetAttributes() {
    return {TPropertyAttribute::paMultiSelect, TPropertyAttribute::paDialog};
}

void TExcludePropertyEditor::Edit() {
    const auto lang = edited_.Host->Runtime().AsCustomLang(edited_.Component);
    if (EditExclusions(edited_.Host->Host, *lang)) edited_.Designer.Modified();
}

void TExcludeComponentEditor::PrepareItem(int /*index*/, TMenuItem& item) {
    const auto selected = designer_.GetSelections();
    item.Enabled = selected.size() == 1 && !IsA(*host_, *selected.front(), kCustomLang) &&
                   !IsA(*host_, *selected.front(), kDispatcher);
}

void TExcludeComponentEditor::ExecuteVerb(int /*index*/) {
    const auto selected = designer_.GetSelections();
    if (selected.size() != 1) return;
    IOTAComponent& component = *selected.front();
    const auto lang = FirstLangOf(component.GetOwner());
    if (lang == nullptr) {
        host_->Dialogs().MessageDlg(kNoLang, TMsgDlgType::mtError, {mrOk});
        return;
    }
    const std::string question = Format(kAskExclude, component.GetName(), component.GetComponentType());
    switch (host_->Dialogs().MessageDlg(question, TMsgDlgType::mtWarning, {mrYes, mrCancel, mrYesToAll})) {
        case mrYes:
            return Exclude(*lang, "!" + component.GetName());
        case mrYesToAll:
            return Exclude(*lang, component.GetComponentType());
        default:
            return;
    }
}

std::shared_ptr<TmlCustomLang> TExcludeComponentEditor::FirstLangOf(
    const std::shared_ptr<IOTAComponent>& owner) const {
    for (int i = 0; owner != nullptr && i < owner->GetComponentCount(); ++i)
        if (auto lang = host_->Runtime().AsCustomLang(owner->GetComponent(i))) return lang;
    return nullptr;
}

void TExcludeComponentEditor::Exclude(TmlCustomLang& lang, const std::string& entry) {
    DoAs(*host_, "Exclude from translation", [&] {
        TStringList entries = lang.GetExclusions(TExclusionList::ExcludedProperties);
        if (std::find(entries.begin(), entries.end(), entry) == entries.end()) {
            entries.Add(entry);
            lang.SetExclusions(TExclusionList::ExcludedProperties, entries);
        }
        designer_.Modified();
    });
}

// --- linked components

std::vector<TPropertyAttribute> TCommonContainerProperty::GetAttributes() {
    return {TPropertyAttribute::paMultiSelect, TPropertyAttribute::paRevertable,
            TPropertyAttribute::paValueList};
}

bool TCommonContainerProperty::CheckComponent(IOTAComponent& candidate) const {
    return IsA(*edited_.Host, candidate, kCustomLang) && !IsA(*edited_.Host, candidate, kLinked);
}

void TCommonContainerProperty::GetValues(const std::function<void(const std::string&)>& add) {
    ForEachReferable(*edited_.Host->Host.Services->GetModuleServices(), edited_.Designer,
                     [&](const std::string& name, IOTAComponent& candidate) {
                         if (CheckComponent(candidate)) add(name);
                     });
}

}  // namespace tml

#include "setup/Exclude.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <numeric>

#include "base/Format.h"
#include "base/Utf8.h"
#include "tables/Exclusionrules.h"

namespace tml {
namespace {

const std::string kExclusionEditorKey = "\\Software\\Velmora\\TmlLang\\ExclusionEditor";

enum TExclusionAction { eaTranslate, eaComponent, eaWithAll, eaClass, eaProperty, eaClassProperty };

constexpr std::array kExcludeActions{
    TActionRow<TfrmExclude>{"acTranslate", "&Translate", "", &TfrmExclude::acTranslate,
                            &TfrmExclude::IsExcluded, "Takes back what excludes this", "Translate"},
    TActionRow<TfrmExclude>{"acExcludeComponent", "Exclude &Component", "", &TfrmExclude::acExcludeComponent,
                            &TfrmExclude::IsComponent, "This component with all its properties",
                            "Exclude Component"},
    TActionRow<TfrmExclude>{"acExcludeWithAll", "Exclude with &All on It", "", &TfrmExclude::acExcludeWithAll,
                            &TfrmExclude::IsInner, "This component and every one that stands on it",
                            "Exclude with All on It"},
    TActionRow<TfrmExclude>{"acExcludeClass", "Exclude C&lass", "", &TfrmExclude::acExcludeClass,
                            &TfrmExclude::IsClass, "Every component of this class", "Exclude Class"},
    TActionRow<TfrmExclude>{"acExcludeProperty", "Exclude &Property Everywhere", "",
                            &TfrmExclude::acExcludeProperty, &TfrmExclude::IsProperty,
                            "This property of every component", "Exclude Property Everywhere"},
    TActionRow<TfrmExclude>{"acExcludeClassProperty", "Exclude Property &of Class", "",
                            &TfrmExclude::acExcludeClassProperty, &TfrmExclude::IsProperty,
                            "This property of every component of the class", "Exclude Property of Class"},
};

std::string ExcludedText(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return text;
}

}  // namespace

std::string TExclusionEntryRow::Cell(std::size_t column) const {
    if (column == 0) return std::string(PropertyOf(Use.List));
    if (column == 1) return Use.Entry;
    return Use.Count() == 0 ? "matches nothing" : std::to_string(Use.Count());
}

TfrmExclude::TfrmExclude(const THost& host, std::vector<TExclusionForm> forms, TOpenForm openForm)
    : host_(host), forms_(std::move(forms)), openForm_(std::move(openForm)), tree_(forms_) {
    Name = "frmExclude";
    Caption = "Exclude from Translation";
    ActiveControl = "tree";
    ClientWidth = 980;
    ClientHeight = 620;
    lvEntries.Columns = {{"List", 130}, {"Entry", 190}, {"Texts", 90}};
    Actions.All = BindActions<TfrmExclude>(*this, kExcludeActions);
    for (const TAction& action : Actions.All) {
        Actions.ToolBar.push_back(action.Name);
        Actions.Popup.push_back(action.Name);
    }
    for (const std::string_view rule : SmartRuleNames())
        SmartBoxes.push_back({std::string(rule)});
    lists_.resize(forms_.size());
    states_.resize(forms_.size());
    for (std::size_t form = 0; form < forms_.size(); ++form)
        SetLists(static_cast<int>(form), forms_[form].Lists);
    Show();
}

// --- what is shown

const TTextOwner& TfrmExclude::CurrentOwner() const {
    const int owner = std::max(tree_.Node(Current).Owner, 0);
    return tree_.FormOf(Current).Owners[static_cast<std::size_t>(owner)];
}

const std::string& TfrmExclude::CurrentPath() const {
    return tree_.FormOf(Current).Texts[static_cast<std::size_t>(tree_.Node(Current).Text)].Property;
}

bool TfrmExclude::IsInner() const {
    return IsComponent() && !CurrentOwner().Path.empty();
}

std::string TfrmExclude::Cell(int node, int column) const {
    const TExclusionNode& shown = tree_.Node(node);
    if (column == 0) return tree_.Caption(node);
    if (shown.Level != TExclusionLevel::Property) {
        if (column == 2) return {};
        if (shown.Excluded == 0) return Format("%d %s", shown.Texts, shown.Texts == 1 ? "text" : "texts");
        return Format("%d of %d excluded", shown.Excluded, shown.Texts);
    }
    if (column == 1) return ExcludedText(tree_.FormOf(node).Texts[static_cast<std::size_t>(shown.Text)].Text);
    const int by = tree_.ExcludedBy(node);
    if (by < 0) return {};
    const TExclusionUse& use =
        states_[static_cast<std::size_t>(shown.Form)].Uses[static_cast<std::size_t>(by)];
    return Format("%s in %s", use.Entry, PropertyOf(use.List));
}

void TfrmExclude::UseCurrentForm(const TUseForm& use) const {
    if (openForm_) openForm_(forms_[static_cast<std::size_t>(CurrentForm())], use);
}

void TfrmExclude::Show() {
    ShowSmartBoxes();
    ShowEntries();
    ShowEffect();
    NameActions();
    Changed();
}

void TfrmExclude::ShowSmartBoxes() {
    const std::vector<int> meant = MeantForms();
    for (TSmartBox& box : SmartBoxes) {
        const auto with = std::count_if(meant.begin(), meant.end(), [&](int form) {
            return HasExclusion(Lists(form), TExclusionList::SmartExcludeProps, box.Rule);
        });
        const auto all = static_cast<std::ptrdiff_t>(meant.size());
        box.State = with == 0     ? TExclusionCheck::Translated
                    : with == all ? TExclusionCheck::Excluded
                                  : TExclusionCheck::Partly;
    }
}

void TfrmExclude::ShowEntries() {
    const int form = CurrentForm();
    if (entriesOf_ == form && entriesRevision_ == revision_) return;
    entriesOf_ = form;
    entriesRevision_ = revision_;
    lvEntries.Clear();
    for (const TExclusionUse& use : states_[static_cast<std::size_t>(form)].Uses)
        lvEntries.Add(use);
}

void TfrmExclude::ShowEffect() {
    TExclusionEffect effect;
    int changed = 0;
    for (std::size_t form = 0; form < forms_.size(); ++form) {
        effect += states_[form].Effect;
        changed += lists_[form] == forms_[form].Lists ? 0 : 1;
    }
    EffectWarns = effect.Dropped > 0;
    lblEffect = EffectText(effect);
    if (changed > 0)
        lblEffect = Format("%d %s: %s", changed, changed == 1 ? "form changes" : "forms change",
                           lblEffect.empty() ? "no text is concerned" : lblEffect);
}

void TfrmExclude::ShowTree() {
    tree_.SetFilter(edSearch, ckbOnlyExcluded);
    lblShown.clear();
    if (LeftOut > 0)
        lblShown = Format(LeftOut == 1 ? "%d chosen form has no localization component and is left out."
                                       : "%d chosen forms have no localization component and are left out.",
                          LeftOut);
    if (!tree_.Roots().empty()) return;
    if (!lblShown.empty()) lblShown += " ";
    if (!edSearch.empty())
        lblShown += Format("Nothing%s has this in its name or text.", ckbOnlyExcluded ? " excluded" : "");
    else if (ckbOnlyExcluded)
        lblShown += "Nothing is excluded; all is shown without \"Show only excluded\".";
}

/// Each says what it would take.
void TfrmExclude::NameActions() {
    const TExclusionNode& node = tree_.Node(Current);
    const auto name = [&](TExclusionAction action, const char* format, const std::string& what) {
        Actions.All[static_cast<std::size_t>(action)].Caption = Format(format, what);
    };
    const bool isProperty = node.Level == TExclusionLevel::Property;
    const std::string property = isProperty ? EverywhereEntry(CurrentPath()).substr(1) : "Property";
    const std::string className = IsClass() ? CurrentOwner().ClassName : "Class";
    const std::string component = IsInner() ? CurrentOwner().Path : "Component";
    name(eaTranslate, "&Translate %s", tree_.Caption(Current));
    name(eaComponent, "Exclude &Component %s", component);
    name(eaWithAll, "Exclude %s with &All on It", component);
    name(eaClass, "Exclude C&lass %s", className);
    name(eaProperty, "Exclude &Property %s Everywhere", property);
    name(eaClassProperty, "Exclude Property %s &of Class", property);
}

// --- what is wanted

std::vector<int> TfrmExclude::MeantForms() const {
    if (!ckbAllForms) return {CurrentForm()};
    std::vector<int> all(forms_.size());
    std::iota(all.begin(), all.end(), 0);
    return all;
}

void TfrmExclude::SetLists(int form, TExclusionLists lists) {
    const auto index = static_cast<std::size_t>(form);
    lists_[index] = std::move(lists);
    states_[index].Uses = UsesOf(forms_[index], lists_[index]);
    states_[index].Effect = EffectOf(forms_[index], forms_[index].Lists, lists_[index]);
    tree_.SetExcluded(form, ExcludedBy(forms_[index], states_[index].Uses));
    ++revision_;
}

void TfrmExclude::ChangeMeant(const TExclusionChange& change) {
    for (const int form : MeantForms()) {
        const auto addedTo = form == CurrentForm() ? TAddedTo::EveryForm : TAddedTo::WhereItMatches;
        TExclusionLists lists =
            WithChanges(forms_[static_cast<std::size_t>(form)], Lists(form), {change}, addedTo);
        if (lists != Lists(form)) SetLists(form, std::move(lists));
    }
    Show();
}

void TfrmExclude::BoxClick(int node, bool excludes) {
    const TExclusionNode& clicked = tree_.Node(node);
    const TExclusionForm& form = tree_.FormOf(node);
    TExclusionLists lists = Lists(clicked.Form);
    const auto exclude = [&](const std::string& entry) {
        AddExclusion(lists, TExclusionList::ExcludedProperties, entry);
    };
    if (!excludes) {
        lists = TakenBack(form, lists, tree_.TextsBelow(node));
    } else if (clicked.Level == TExclusionLevel::Form) {
        for (const int child : tree_.AllBelow(node))
            if (tree_.Node(child).Check() != TExclusionCheck::Excluded) exclude(tree_.Caption(child));
    } else {
        const TTextOwner& owner = form.Owners[static_cast<std::size_t>(clicked.Owner)];
        const auto text = static_cast<std::size_t>(clicked.Text);
        if (clicked.Level == TExclusionLevel::Class) exclude(owner.ClassName);
        if (clicked.Level == TExclusionLevel::Component) exclude(ComponentEntry(owner));
        if (clicked.Level == TExclusionLevel::Property)
            exclude(PropertyEntry(owner, form.Texts[text].Property));
    }
    if (lists != Lists(clicked.Form)) SetLists(clicked.Form, std::move(lists));
    Show();
}

void TfrmExclude::SmartBoxClick(int box, bool on) {
    ChangeMeant({TExclusionList::SmartExcludeProps, SmartBoxes[static_cast<std::size_t>(box)].Rule, on});
}

void TfrmExclude::acExcludeComponent() {
    ChangeMeant({TExclusionList::ExcludedProperties, ComponentEntry(CurrentOwner())});
}

void TfrmExclude::acExcludeWithAll() {
    ChangeMeant({TExclusionList::DoNotTranslate, CurrentOwner().Path});
}

void TfrmExclude::acExcludeClass() {
    ChangeMeant({TExclusionList::ExcludedProperties, CurrentOwner().ClassName});
}

void TfrmExclude::acExcludeProperty() {
    ChangeMeant({TExclusionList::ExcludedProperties, EverywhereEntry(CurrentPath())});
}

void TfrmExclude::acExcludeClassProperty() {
    ChangeMeant(
        {TExclusionList::ExcludedProperties, ClassPropertyEntry(CurrentOwner().ClassName, CurrentPath())});
}

/// An entry of the smart rules' kind goes to them.
void TfrmExclude::btnAddEntryClick() {
    std::string entry;
    const bool isGiven = host_.Dialogs->InputQuery(
        "Add Exclusion", "Entry (!Component, TClass, .Property, TClass.Property, Path):", entry);
    if (!isGiven) return;
    const TExclusionChange change{ListFor(entry), entry};
    CheckExclusion(change);
    ChangeMeant(change);
    TellOfNoUse(change);
}

/// The list of entries, which says so of the current form, would not say it of the others.
void TfrmExclude::TellOfNoUse(const TExclusionChange& change) {
    if (!ckbAllForms || change.List == TExclusionList::SmartExcludeProps) return;
    const bool isUsed = std::any_of(forms_.begin(), forms_.end(), [&](const TExclusionForm& form) {
        return UseOf(form, change.List, change.Entry).Count() > 0;
    });
    if (isUsed) return;
    const std::string& current = forms_[static_cast<std::size_t>(CurrentForm())].FormName;
    host_.Dialogs->MessageDlg(
        Format("\"%s\" matches nothing in any form; only %s has it now.", change.Entry, current),
        TMsgDlgType::mtInformation, {mrOk});
}

void TfrmExclude::btnRemoveEntryClick() {
    const TExclusionEntryRow* row = lvEntries.FirstSelected();
    if (row != nullptr) ChangeMeant({row->Use.List, std::string(row->Use.Entry), false});
}

void TfrmExclude::btOKClick() {
    const std::string question = lblEffect + ". Continue?";
    if (EffectWarns && host_.Dialogs->MessageDlg(question, TMsgDlgType::mtWarning, {mrYes, mrNo}) != mrYes)
        return;
    Close(mrOk);
}

// --- the window

void TfrmExclude::FormShow() {
    IRegistry& registry = *host_.Registry;
    const auto stored = registry.OpenForReading();
    ReadPlacement(*stored, kExclusionEditorKey, Placement);
    ckbFormView = stored->ReadBool(kExclusionEditorKey, "FormView").value_or(ckbFormView);
    FormViewWidth = stored->ReadInteger(kExclusionEditorKey, "FormViewWidth").value_or(0);
    ckbAllForms = stored->ReadBool(kExclusionEditorKey, "AllForms").value_or(false);
    ckbOnlyExcluded = stored->ReadBool(kExclusionEditorKey, "OnlyExcluded").value_or(false);
    ColumnWidths.clear();
    const std::string widths = stored->ReadString(kExclusionEditorKey, "ColumnWidths").value_or("");
    for (const std::string& width : TStringList::FromCommaText(widths))
        ColumnWidths.push_back(std::max(std::atoi(width.c_str()), 0));
    ShowTree();
    Show();
}

void TfrmExclude::FormClose() {
    IRegistry& registry = *host_.Registry;
    WritePlacement(registry, kExclusionEditorKey, Placement);
    registry.WriteBool(kExclusionEditorKey, "FormView", ckbFormView);
    if (FormViewWidth > 0) registry.WriteInteger(kExclusionEditorKey, "FormViewWidth", FormViewWidth);
    registry.WriteBool(kExclusionEditorKey, "AllForms", ckbAllForms);
    registry.WriteBool(kExclusionEditorKey, "OnlyExcluded", ckbOnlyExcluded);
    TStringList widths;
    for (const int width : ColumnWidths)
        widths.Add(std::to_string(width));
    if (!widths.Empty()) registry.WriteString(kExclusionEditorKey, "ColumnWidths", widths.CommaText());
}

void TfrmExclude::edSearchChange(const std::string& text) {
    edSearch = text;
    ShowTree();
    Changed();
}

void TfrmExclude::ckbOnlyExcludedClick(bool only) {
    ckbOnlyExcluded = only;
    ShowTree();
    Changed();
}

void TfrmExclude::ckbAllFormsClick(bool all) {
    ckbAllForms = all;
    Show();
}

void TfrmExclude::ckbFormViewClick(bool shown) {
    ckbFormView = shown;
    Changed();
}

void TfrmExclude::NodeClick(int node) {
    if (node == Current) return;
    Current = node;
    Show();
}

void TfrmExclude::ComponentClick(const std::string& path) {
    const auto components = tree_.ComponentsOf(CurrentForm());
    const auto found = components.find(UpperCase(path));
    if (found != components.end()) NodeClick(found->second);
}

}  // namespace tml

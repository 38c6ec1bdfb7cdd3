#include "ide/Inspector.h"

#include <algorithm>
#include <map>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "ide/Designlanguages.h"
#include "ide/Valuetexts.h"
#include "layout/Modulecomponents.h"
#include "platform/Referable.h"
#include "runtime/Componentprops.h"
#include "tables/Componentclasses.h"
#include "windows/Stringlisteditor.h"

namespace tml {
namespace {

constexpr const char* kName = "Name";
constexpr std::string_view kStrings = ".Strings";
constexpr int kDeepest = 50;  ///< ancestors of a form

bool IsList(const TFormProperty& property) {
    return property.Value.Kind == TFormValueKind::List && property.Name.ends_with(kStrings);
}

bool IsTyped(const TInspectedProperty& row, const TFormValue* held) {
    if (row.Type.Takes == TTakes::Nothing || row.Type.Takes == TTakes::Strings) return false;
    return held == nullptr || held->Kind != TFormValueKind::String || IsOneLine(held->Text);
}

bool Has(const std::vector<TPropertyAttribute>& attributes, TPropertyAttribute attribute) {
    return std::find(attributes.begin(), attributes.end(), attribute) != attributes.end();
}

/// The farthest ancestor of a class that is more than any component.
std::string KindOf(const std::string& className) {
    std::string kind = className;
    for (std::string_view next = ComponentAncestor(kind); !next.empty(); next = ComponentAncestor(kind)) {
        if (next == "TComponent") return kind;
        kind = next;
    }
    return "TComponent";
}

/// A name may be that of another component.
TPropertyType TypeOfHeld(IOTAComponent& component, const TFormProperty& property) {
    TPropertyType type = TypeByValue(component.GetComponentType(), property.Name, property.Value);
    if (type.Takes != TTakes::Name) return type;
    // One on another form, which is not opened for being looked at.
    if (property.Value.Text.find('.') != std::string::npos) return {TTakes::Component, "TComponent"};
    const auto target = component.GetPropComponent(property.Name);
    return target == nullptr ? type : TPropertyType{TTakes::Component, KindOf(target->GetComponentType())};
}

/// The line break of a text that has one, else that of the form's library.
std::string LineBreakOf(const std::string& text, const std::string& formFile) {
    if (text.find("\r\n") != std::string::npos) return "\r\n";
    if (text.find('\n') != std::string::npos) return "\n";
    if (text.find('\r') != std::string::npos) return "\r";
    return UpperCase(formFile).ends_with(".LFM") ? "\n" : "\r\n";
}

std::string Joined(const TStringList& lines, const std::string& lineBreak, bool endsWithBreak) {
    std::string text;
    for (int i = 0; i < lines.Count(); ++i)
        text += (i > 0 ? lineBreak : std::string()) + lines[i];
    return endsWithBreak && !lines.Empty() ? text + lineBreak : text;
}

bool EndsWithBreak(const std::string& text) {
    return text.ends_with('\n') || text.ends_with('\r');
}

bool HoldsControls(IOTAComponent& root) {
    for (int i = 0; i < root.GetComponentCount(); ++i)
        if (ComponentInheritsFrom(root.GetComponent(i)->GetComponentType(), "TControl")) return true;
    return false;
}

bool HoldsWindow(IOTAComponent& root) {
    const auto held = root.GetProperties();
    return HoldsControls(root) || std::any_of(held.begin(), held.end(), [](const TFormProperty& property) {
               return IsOfWindows(property.Name);
           });
}

/// A form's class is known by what it and its ancestors hold only.
std::string OfferedClassOf(IOTAComponent& component) {
    if (component.GetOwner() != nullptr) return component.GetComponentType();
    if (HoldsWindow(component)) return "TCustomForm";
    auto ancestor = component.GetAncestor();
    for (int depth = 0; ancestor != nullptr && depth < kDeepest; ++depth) {
        if (HoldsWindow(*ancestor)) return "TCustomForm";
        ancestor = ancestor->GetAncestor();
    }
    return "TDataModule";
}

}  // namespace

/// Rows by their upper-cased names.
struct TInspector::TCollected {
    std::map<std::string, TInspectedProperty> Rows;
    bool IsInherited = false;  ///< what is added comes from an ancestor

    TInspectedProperty& At(const std::string& name) {
        TInspectedProperty& row = Rows[UpperCase(name)];
        if (row.Name.empty()) row.Name = name;
        return row;
    }
};

std::shared_ptr<IOTAFormEditor> TInspector::Form() const {
    if (auto form = form_.lock()) return form;
    throw EBadInput("", 0, "the form is closed", "Open the form again and repeat the command");
}

void TInspector::Refuse(const std::string& why) const {
    throw EBadInput(Form()->GetFileName(), 0, why, "The form is as it was");
}

void TInspector::DoAs(const std::string& title, const std::function<void()>& work) {
    const auto scope = modules_.BeginCommand(title);
    work();
    scope->Commit();
}

// --- what is shown

void TInspector::Follow(const std::shared_ptr<IOTAFormEditor>& form, const TComponents& components,
                        std::shared_ptr<const TEditorChoice> editors) {
    form_ = form;
    components_ = components;
    editors_ = std::move(editors);
    rows_.clear();
    if (!components_.empty()) rows_ = RowsOf(components_.front());
    for (std::size_t i = 1; i < components_.size(); ++i)
        KeepCommon(RowsOf(components_[i]));
}

/// What another component has too and a person can type; a name is of one component alone.
void TInspector::KeepCommon(const std::vector<TInspectedProperty>& others) {
    std::erase_if(rows_, [&](TInspectedProperty& row) {
        const auto same = std::find_if(others.begin(), others.end(), [&](const TInspectedProperty& one) {
            return SameText(one.Name, row.Name) && one.Type.Takes == row.Type.Takes && one.Name != kName;
        });
        if (same == others.end() || !same->CanType || !row.CanType) return true;
        if (same->Value != row.Value) row.Value.clear();
        row.IsHeld = row.IsHeld || same->IsHeld;
        row.HasDialog = false;
        return false;
    });
}

std::string TInspector::Title() const {
    if (components_.empty()) return {};
    if (components_.size() > 1) return Format("%d components", components_.size());
    return components_.front()->GetName() + ": " + components_.front()->GetComponentType();
}

std::vector<TInspectedProperty> TInspector::RowsOf(const std::shared_ptr<IOTAComponent>& component) const {
    TCollected collected;
    AddOffered(collected, OfferedClassOf(*component));
    auto holder = component;
    for (int depth = 0; holder != nullptr && depth < kDeepest; holder = holder->GetAncestor(), ++depth) {
        collected.IsInherited = depth > 0;
        AddHeld(collected, *holder);
    }
    AddLanguage(collected, component);
    AddEdited(collected, component);
    TInspectedProperty& name = collected.At(kName);
    name = {kName, component->GetName(), {TTakes::Name}, true, true, false, false};
    std::vector<TInspectedProperty> rows;
    for (auto& entry : collected.Rows)
        rows.push_back(std::move(entry.second));
    return rows;
}

void TInspector::AddOffered(TCollected& rows, const std::string& className) const {
    for (const TOfferedProperty& offered : OfferedProperties()) {
        if (!editors_->InheritsFrom(className, offered.ClassName)) continue;
        for (const std::string& name : WordsOf(offered.Names)) {
            TInspectedProperty& row = rows.At(name);
            row.Type = offered.Type;
            row.CanType = IsTyped(row, nullptr);
            row.HasDialog = offered.Type.Takes == TTakes::Strings || offered.Type.Takes == TTakes::String;
        }
    }
}

void TInspector::AddHeld(TCollected& rows, IOTAComponent& component) const {
    for (const TFormProperty& property : component.GetProperties()) {
        const bool isList = IsList(property);
        const std::string name =
            isList ? property.Name.substr(0, property.Name.size() - kStrings.size()) : property.Name;
        const bool isOffered = rows.Rows.contains(UpperCase(name));
        TInspectedProperty& row = rows.At(name);
        if (row.IsHeld || !row.Value.empty()) continue;
        if (!isOffered) row.Type = isList ? TPropertyType{TTakes::Strings} : TypeOfHeld(component, property);
        row.Value = ValueText(property.Value);
        row.IsHeld = !rows.IsInherited;
        row.CanType = IsTyped(row, &property.Value);
        row.HasDialog = row.Type.Takes == TTakes::Strings || row.Type.Takes == TTakes::String;
    }
}

/// The first language is the active one where the form holds none; that of a dispatcher stands there.
void TInspector::AddLanguage(TCollected& rows, const std::shared_ptr<IOTAComponent>& component) const {
    const auto lang = runtime_.AsCustomLang(component);
    const auto dispatcher = runtime_.AsDispatcher(component);
    if (lang != nullptr && !ReadProp(*component, "Dispatcher"))
        rows.At("Language").Value = lang->GetLanguage();
    else if (dispatcher != nullptr)
        rows.At("Language").Value = dispatcher->GetLanguage();
}

void TInspector::AddEdited(TCollected& rows, const std::shared_ptr<IOTAComponent>& component) const {
    for (const std::string& name : editors_->PropertiesWithEditor(component->GetComponentType()))
        rows.At(name);
    for (auto& entry : rows.Rows) {
        TInspectedProperty& row = entry.second;
        row.HasList = row.Type.Takes == TTakes::Boolean || row.Type.Takes == TTakes::OneOf ||
                      row.Type.Takes == TTakes::Component;
        const auto editor = EditorOf(component, row.Name);
        if (editor == nullptr) continue;
        row.HasList = Has(editor->GetAttributes(), TPropertyAttribute::paValueList);
        row.HasDialog = Has(editor->GetAttributes(), TPropertyAttribute::paDialog);
    }
}

const TInspectedProperty* TInspector::Find(const std::string& property) const {
    const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const TInspectedProperty& row) {
        return SameText(row.Name, property);
    });
    return found == rows_.end() ? nullptr : &*found;
}

std::unique_ptr<IPropertyEditor> TInspector::EditorOf(const std::shared_ptr<IOTAComponent>& component,
                                                      const std::string& property) const {
    return editors_->ForProperty(component, property, Form()->GetDesigner());
}

TStringList TInspector::Candidates(const TPropertyType& type) const {
    TStringList names;
    const std::vector<std::string> classes = WordsOf(type.Of);
    ForEachReferable(modules_, Form()->GetDesigner(), [&](const std::string& name, IOTAComponent& component) {
        if (std::any_of(classes.begin(), classes.end(), [&](const std::string& one) {
                return editors_->InheritsFrom(component.GetComponentType(), one);
            }))
            names.Add(name);
    });
    return names;
}

TStringList TInspector::Values(const std::string& property) {
    const TInspectedProperty* row = Find(property);
    if (row == nullptr || !row->HasList) return {};
    if (const auto editor = EditorOf(components_.front(), property)) {
        TStringList values;
        editor->GetValues([&](const std::string& value) { values.Add(value); });
        return values;
    }
    if (row->Type.Takes == TTakes::Component) return Candidates(row->Type);
    return TStringList(WordsOf(row->Type.Takes == TTakes::Boolean ? "False True" : row->Type.Of));
}

// --- what is changed

void TInspector::SetText(const std::string& property, const std::string& text) {
    const TInspectedProperty* found = Find(property);
    if (found == nullptr || text == found->Value) return;
    const TInspectedProperty row = *found;
    DoAs(Format("Set %s.%s", components_.front()->GetName(), row.Name), [&] {
        for (const auto& component : components_)
            Change(component, row, text);
    });
}

void TInspector::Change(const std::shared_ptr<IOTAComponent>& component, const TInspectedProperty& row,
                        const std::string& text) {
    if (row.Name == kName) return component->SetName(text);
    if (TDesignLanguages(modules_, runtime_, Form()->GetFileName()).SetText(component, row.Name, text))
        return;
    const bool refers = row.Type.Takes == TTakes::Component || row.Type.Takes == TTakes::Method;
    if (refers && text.empty()) return component->RemoveProp(row.Name);
    std::string reason;
    const auto value = ValueOfText(row.Type, text, reason);
    if (!value) Refuse(Format("%s.%s %s, not \"%s\"", component->GetName(), row.Name, reason, text));
    component->SetPropValue(row.Name, *value);
    ExpectTarget(*component, row, text);
}

void TInspector::ExpectTarget(IOTAComponent& component, const TInspectedProperty& row,
                              const std::string& text) {
    if (row.Type.Takes == TTakes::Method) {
        // An ancestor's class may have it.
        const bool isKnown = Form()->FindComponent(text) == nullptr && Form()->FreeName(text, "") != text;
        if (!isKnown && Form()->GetRootComponent()->GetAncestor() == nullptr)
            Refuse(Format("the form's class has no method %s", text));
    }
    if (row.Type.Takes != TTakes::Component) return;
    const auto target = component.GetPropComponent(row.Name);
    if (target == nullptr) Refuse(Format("there is no component %s", text));
    // Its form is open now, so that what the property takes is what its list offers.
    const std::string own = Form()->GetRootComponent()->GetName() + '.';
    const bool isOwn = SameText(text.substr(0, own.size()), own);
    if (Values(row.Name).IndexOf(isOwn ? text.substr(own.size()) : text) < 0)
        Refuse(Format("%s.%s takes no %s", component.GetName(), row.Name, target->GetComponentType()));
}

void TInspector::Edit(const std::string& property) {
    const TInspectedProperty* row = Find(property);
    if (row == nullptr || !row->HasDialog || components_.size() != 1) return;
    const auto editor = EditorOf(components_.front(), property);
    if (editor != nullptr && Has(editor->GetAttributes(), TPropertyAttribute::paDialog))
        editor->Edit();
    else
        EditLines(TInspectedProperty(*row));
}

bool TInspector::CanReset(const std::string& property) const {
    const TInspectedProperty* row = Find(property);
    if (row == nullptr || !row->IsHeld || row->Name == kName) return false;
    TDesignLanguages languages(modules_, runtime_, Form()->GetFileName());
    return std::none_of(components_.begin(), components_.end(),
                        [&](const auto& component) { return languages.IsNeeded(component, row->Name); });
}

void TInspector::Reset(const std::string& property) {
    if (!CanReset(property)) return;
    const std::string name = Find(property)->Name;
    DoAs(Format("Reset %s.%s", components_.front()->GetName(), name), [&] {
        for (const auto& component : components_)
            ResetOn(component, name);
    });
}

void TInspector::ResetOn(const std::shared_ptr<IOTAComponent>& component, const std::string& property) {
    TDesignLanguages(modules_, runtime_, Form()->GetFileName()).Reset(component, property);
    for (const TFormProperty& held : component->GetProperties()) {
        const std::string& name = held.Name;
        const bool isList = IsList(held) && SameText(name, property + std::string(kStrings));
        if (isList || SameText(name, property)) component->RemoveProp(name);
    }
}

void TInspector::EditLines(const TInspectedProperty& row) {
    const auto component = components_.front();
    const bool isList = row.Type.Takes == TTakes::Strings;
    const std::string text = isList ? std::string() : ReadStringProp(*component, row.Name);
    const std::string title = component->GetName() + "." + row.Name;
    TfrmStringList window(title, isList ? ReadListProp(*component, row.Name) : TStringList::FromText(text));
    const TStringList before = window.Lines;
    if (runtime_.Dialogs->ShowModal(window) != mrOk || window.Lines == before) return;
    DoAs("Set " + title, [&] {
        if (TDesignLanguages(modules_, runtime_, Form()->GetFileName())
                .SetLines(component, row.Name, window.Lines))
            return;
        if (isList)
            WriteListProp(*component, row.Name, window.Lines);
        else
            WriteProp(*component, row.Name,
                      TFormValue::String(Joined(window.Lines, LineBreakOf(text, Form()->GetFileName()),
                                                EndsWithBreak(text))));
    });
}

}  // namespace tml

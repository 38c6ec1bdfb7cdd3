#include "ids/Idrename.h"

#include <algorithm>
#include <map>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Formfamilies.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "ids/Idchecks.h"
#include "source/Literals.h"
#include "tables/Stringids.h"

namespace tml {
namespace {

constexpr const char* kRenameTitle = "Rename string ID";
constexpr const char* kSayYes = "Change these by hand first, or say --yes to leave them as they are";
constexpr std::size_t kMostNamed = 10;

void ExpectID(const std::string& id) {
    if (!IsStringID(id))
        throw EBadInput("", 0, Format("'%s' is no string ID", id), std::string(kStringIDRule));
}

class TRename {
  public:
    TRename(TContext& context, const TIDRename& rename) : context_(context), rename_(rename), ids_(context) {}

    TIDRenamed Run() {
        const TFormRow& form = CheckedForm();
        if (isNamedSo_) return {};
        ExpectDecided();
        const auto scope = BeginCommand(context_, kRenameTitle);
        RenameInForms(form);
        RenameInUnits();
        scope->Commit();
        return std::move(renamed_);
    }

    void RunInForms() {
        const TFormRow& form = CheckedForm();
        staysOpen_ = true;
        const auto scope = BeginCommand(context_, kRenameTitle);
        RenameInForms(form);
        scope->Commit();
    }

  private:
    const TFormRow& Form();
    const TFormRow& CheckedForm() {
        const TFormRow& form = Form();
        ExpectID(rename_.NewID);
        ExpectFree(form);
        return form;
    }
    void ExpectFree(const TFormRow& form);
    void ExpectDecided();
    bool IsChosen(const std::string& unit) const;
    void RenameInForms(const TFormRow& form);
    void RenameInForm(const TFormRow& row);
    void RenameInUnits();
    void RenameInUnit(const std::string& unit, const std::string& formName);
    void RenameCalls(IOTASourceEditor& editor, const std::string& formName);
    void RenameLabels(IOTAModule& module, const std::string& formName);
    /// What asks the form asks for this string; what asks an ancestor may do so.
    bool Asks(const std::string& form) const { return Forms().Descends(form, rename_.FormName); }
    const TIDForms& Forms() const { return uses_->Forms(); }

    TContext& context_;
    const TIDRename& rename_;
    TProjectIDs ids_;
    const TIDUses* uses_ = nullptr;
    TIDRenamed renamed_;
    bool staysOpen_ = false;
    bool isNamedSo_ = false;  ///< the string has the new ID already, to the letter
    /// The uses in each unit or its form, by upper-cased path without extension.
    std::map<std::string, std::vector<std::string>> places_;
};

const TFormRow& TRename::Form() {
    const TFormRow* row = context_.Rows.FormNames.FindForm(rename_.FormName);
    if (row == nullptr || !row->HasComponent())
        throw EBadInput("", 0, Format("%s has no localization component", rename_.FormName),
                        "\"tmllang forms PROJECT\" lists the forms and their components");
    return *row;
}

/// The old ID is the component's own, and the new one nobody's.
void TRename::ExpectFree(const TFormRow& form) {
    const TModuleLease opened(context_, form.FileName);
    const auto lang = GetmlLang(context_, form);
    const TTable strings = lang->GetTable(TStringsType::stStrings);
    const int index = strings.Find(rename_.OldID);
    if (index < 0)
        throw EBadInput(form.FileName, 0,
                        Format("%s.%s has no string '%s'", form.FormName, lang->GetName(), rename_.OldID),
                        "\"tmllang texts PROJECT\" lists the strings");
    const int taken = strings.Find(rename_.NewID);
    if (taken >= 0 && taken != index)
        throw EBadInput(
            form.FileName, 0,
            Format("%s.%s has a string '%s' already", form.FormName, lang->GetName(), rename_.NewID),
            "Choose another ID");
    isNamedSo_ = strings.Entries()[static_cast<std::size_t>(index)].Key == rename_.NewID;
    if (const auto inherited = lang->GetInherited();
        inherited != nullptr && inherited->GetTable(TStringsType::stStrings).Find(rename_.OldID) >= 0)
        throw EBadInput(form.FileName, 0,
                        Format("the string '%s' comes from %s", rename_.OldID, form.Component.Ancestor),
                        Format("Say --form %s", form.Component.Ancestor));
}

/// Reads the whole project, too: which component a call asks shows only then.
void TRename::ExpectDecided() {
    uses_ = &ids_.Uses();
    std::string places;
    std::size_t count = 0;
    for (const TIDUse& use : uses_->UsesOf(rename_.FormName, rename_.OldID)) {
        const bool isDecided = use.Doubt == TIDDoubt::None || use.Doubt == TIDDoubt::SwitchedOff;
        if (isDecided && Asks(use.AskedForm)) {
            places_[UpperCase(WithExtension(use.FileName, ""))].push_back(use.Text());
            continue;
        }
        renamed_.Left.push_back(use.Text());
        if (++count <= kMostNamed) places += "\r\n  " + use.Text();
    }
    if (renamed_.Left.empty() || rename_.DespiteDoubts) return;
    throw EBadInput("", 0, Format("uses that may mean '%s' cannot be decided:%s", rename_.OldID, places),
                    kSayYes);
}

bool TRename::IsChosen(const std::string& unit) const {
    return rename_.Units.empty() || std::any_of(rename_.Units.begin(), rename_.Units.end(),
                                                [&](const auto& one) { return SameText(one, unit); });
}

void TRename::RenameInForms(const TFormRow& form) {
    RenameInForm(form);
    for (const std::string& unit : FamiliesOf(context_.Rows.FormNames).DescendantsOf(form.FormName))
        RenameInForm(*context_.Rows.FormNames.FindFile(unit));
}

void TRename::RenameInForm(const TFormRow& row) {
    TModuleLease lease(context_, row.FileName);
    const auto lang = GetmlLang(context_, row);
    TTable strings = lang->GetTable(TStringsType::stStrings);
    if (strings.Find(rename_.OldID) < 0) return;
    strings.Rename(
        [&](const std::string& key) { return SameText(key, rename_.OldID) ? rename_.NewID : key; });
    lang->SetTable(strings);
    MarkModifiedForm(context_, row.FormName);
    if (staysOpen_)
        lease.Keep();
    else
        lease.Save();
    renamed_.Forms.push_back(row.FormName);
}

void TRename::RenameInUnits() {
    for (TFormRows* list : context_.Rows.Both())
        for (const auto& row : list->Items())
            RenameInUnit(row->FileName, row->FormName);
    for (const std::string& unit : context_.Project.UnitFiles)
        RenameInUnit(unit, {});
}

void TRename::RenameInUnit(const std::string& unit, const std::string& formName) {
    const auto uses = places_.find(UpperCase(WithExtension(unit, "")));
    if (uses == places_.end()) return;
    const std::vector<std::string> texts = std::move(uses->second);
    places_.erase(uses);
    if (!IsChosen(unit)) {
        renamed_.Left.insert(renamed_.Left.end(), texts.begin(), texts.end());
        return;
    }
    TModuleLease lease(context_, unit);
    const auto module = GetModuleFromFileName(context_, unit);
    if (!formName.empty()) RenameLabels(*module, formName);
    for (int i = 0; i < module->GetSourceEditorCount(); ++i)
        RenameCalls(*module->GetSourceEditor(i), formName);
    renamed_.Units.push_back(unit);
    lease.Save();
}

void TRename::RenameLabels(IOTAModule& module, const std::string& formName) {
    const auto root = module.GetFormEditor()->GetRootComponent();
    for (int i = 0; i < root->GetComponentCount(); ++i) {
        const auto component = root->GetComponent(i);
        if (!context_.Host.Runtime->InheritsFrom(component->GetComponentType(), "TmlLabel")) continue;
        const auto id = component->GetPropValue("TextID");
        const auto lang = component->GetPropValue("Lang");
        if (!id || !lang || !SameText(id->Text, rename_.OldID)) continue;
        if (!Asks(Forms().FormReferred(lang->Text, formName))) continue;
        component->SetPropValue("TextID", TFormValue::String(rename_.NewID));
        ++renamed_.Calls;
    }
}

void TRename::RenameCalls(IOTASourceEditor& editor, const std::string& formName) {
    const TSharedSource source = editor.GetSource();
    const std::string body = EncodeLiteralBody(rename_.NewID, source->Language());
    TSourceChange change{editor.GetFileName(), editor.GetText(), {}};
    for (const TIDCall& call : ReadIDCalls(*source))
        if (call.Argument == TIDArgument::Whole && SameText(call.ID, rename_.OldID) &&
            Asks(Forms().FormAsked(call, formName)))
            change.Edits.push_back({call.BodyBegin, call.BodyEnd, body});
    if (change.Edits.empty()) return;
    renamed_.Calls += static_cast<int>(change.Edits.size());
    TChangeSet changes;
    changes.Title = kRenameTitle;
    changes.Sources.push_back(std::move(change));
    GetModuleServices(context_)->ApplyChangeSet(changes);
}

}  // namespace

TIDRenamed RenameID(TContext& context, const TIDRename& rename) {
    return TRename(context, rename).Run();
}

void RenameIDInForms(TContext& context, const TIDRename& rename) {
    TRename(context, rename).RunInForms();
}

}  // namespace tml

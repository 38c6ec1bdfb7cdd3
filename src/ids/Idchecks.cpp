#include "ids/Idchecks.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "core/Insertion.h"
#include "core/Modules.h"

namespace tml {
namespace {

/// The row of the form of exactly this name, else of one that differs in case only.
const TFormRow* FormRow(const TFormRows& rows, const std::string& formName) {
    if (const TFormRow* row = rows.FindForm(formName)) return row;
    const std::vector<TFormRow*> others = rows.FindForms(formName);
    return others.empty() ? nullptr : others.front();
}

/// A value of a form file that is a text or a name, "" for another one.
std::string TextOf(IOTAComponent& component, const std::string& property) {
    const std::optional<TFormValue> value = component.GetPropValue(property);
    return value ? value->Text : std::string();
}

/// None where the form has no component after all, or cannot be opened.
std::optional<TIDHolder> ReadHolder(TContext& context, const TFormRow& row) {
    const bool wasOpen = IsFileOpen(context, row.FileName);
    if (!OpenFile(context, row.FileName, false)) return std::nullopt;
    const TModuleLease opened(context, row.FileName, wasOpen);
    const auto lang = GetmlLang(context, row);
    if (lang == nullptr) return std::nullopt;
    return TIDHolder{lang->GetName(), lang->GetTable(TStringsType::stStrings)};
}

}  // namespace

const TIDHolder* TProjectIDs::Find(const std::string& formName) {
    const auto [place, isNew] = holders_.try_emplace(UpperCase(formName));
    std::optional<TIDHolder>& holder = place->second;
    const TFormRow* row = isNew ? FormRow(context_.Rows.FormNames, formName) : nullptr;
    if (row != nullptr && row->HasComponent()) holder = ReadHolder(context_, *row);
    return holder ? &*holder : nullptr;
}

TIDUses& TProjectIDs::Started() {
    if (!uses_) uses_.emplace(context_.Rows.FormNames);
    return *uses_;
}

void TProjectIDs::Read(IOTAModule& module, const std::string& formName) {
    if (!read_.insert(UpperCase(module.GetFileName())).second) return;
    for (int i = 0; i < module.GetSourceEditorCount(); ++i) {
        const auto editor = module.GetSourceEditor(i);
        Started().Add(editor->GetFileName(), formName, *editor->GetSource());
    }
    if (!formName.empty()) ReadForm(module, formName);
}

/// Labels that ask for a text by its ID, and the link of the form's own component.
void TProjectIDs::ReadForm(IOTAModule& module, const std::string& formName) {
    const auto editor = module.GetFormEditor();
    const auto root = editor == nullptr ? nullptr : editor->GetRootComponent();
    if (root == nullptr) return;
    IMlRuntime& runtime = *context_.Host.Runtime;
    for (int i = 0; i < root->GetComponentCount(); ++i) {
        const auto component = root->GetComponent(i);
        const std::string className = component->GetComponentType();
        if (runtime.InheritsFrom(className, "TmlLabel"))
            Started().AddReference(editor->GetFileName(), formName, TextOf(*component, "Lang"),
                                   TextOf(*component, "TextID"));
        if (!runtime.InheritsFrom(className, "TmlLangLinked")) continue;
        const std::string container = TextOf(*component, "CommonContainer");
        const std::size_t point = container.find('.');
        if (point != std::string::npos) Started().AddLink(formName, container.substr(0, point));
    }
}

void TProjectIDs::ReadUnit(const std::string& fileName, const std::string& formName) {
    if (read_.contains(UpperCase(fileName))) return;
    try {
        const TModuleLease opened(context_, fileName);
        Read(*GetModuleFromFileName(context_, fileName), formName);
    } catch (const EmlLangSilent&) {
        Started().AddUnread(fileName);
    }
}

void TProjectIDs::ReadAll() {
    if (allRead_) return;
    allRead_ = true;
    for (TFormRows* list : context_.Rows.Both())
        for (const auto& row : list->Items())
            ReadUnit(row->FileName, row->FormName);
    for (const std::string& file : context_.Project.UnitFiles)
        ReadUnit(file, {});
}

const TIDUses& TProjectIDs::Uses() {
    ReadAll();
    return Started();
}

void TProjectIDs::Judge(std::vector<TBadID>& found) {
    for (TBadID& bad : found)
        if (bad.Kind == TBadIDKind::Unused) bad.Use = Uses().UseOf(bad.FormName, bad.ID);
}

std::vector<TBadID> CheckIDInFile(TContext& context, TProjectIDs& ids, const std::string& formName,
                                  const std::string& fileName) {
    const TModuleLease opened(context, fileName);
    const auto module = GetModuleFromFileName(context, fileName);
    ids.Read(*module, formName);
    const auto text = module->GetSourceEditor(0)->GetText();
    return CheckIDs(*text, LanguageOf(fileName), formName, fileName,
                    [&ids](const std::string& name) { return ids.Find(name); });
}

}  // namespace tml

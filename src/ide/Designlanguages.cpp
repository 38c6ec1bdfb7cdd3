#include "ide/Designlanguages.h"

#include <charconv>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "tables/Languages.h"

namespace tml {
namespace {

bool Lists(IOTAProject& project, const std::string& unitFile) {
    for (int i = 0; i < project.GetModuleCount(); ++i)
        if (SameText(project.GetModule(i).FileName, unitFile)) return true;
    return false;
}

}  // namespace

void TDesignLanguages::Refuse(const std::string& why) const {
    throw EBadInput(formFile_, 0, why, "The form is as it was");
}

TDesignLanguages::TOwner TDesignLanguages::OwnerOf(const std::shared_ptr<IOTAComponent>& component) {
    TOwner owner{runtime_.AsCustomLang(component), runtime_.AsDispatcher(component), nullptr};
    if (owner.Lang != nullptr)
        owner.Languages = owner.Lang.get();
    else if (owner.Dispatcher != nullptr)
        owner.Languages = owner.Dispatcher.get();
    return owner;
}

bool TDesignLanguages::SetText(const std::shared_ptr<IOTAComponent>& component, const std::string& property,
                               const std::string& text) {
    const bool isLanguage = SameText(property, "Language");
    const TOwner owner = OwnerOf(component);
    if (owner.Languages == nullptr || (!isLanguage && !SameText(property, "NumOfLanguages"))) return false;
    if (owner.Lang != nullptr && owner.Lang->GetDispatcher() != nullptr)
        Refuse(component->GetName() + " has the languages of its dispatcher");
    if (isLanguage)
        SetLanguage(owner, text);
    else
        SetCount(owner, text);
    return true;
}

bool TDesignLanguages::SetLines(const std::shared_ptr<IOTAComponent>& component, const std::string& property,
                                const TStringList& lines) {
    const TOwner owner = OwnerOf(component);
    if (owner.Languages == nullptr || !SameText(property, "LangNames")) return false;
    if (owner.Lang != nullptr && owner.Lang->GetDispatcher() != nullptr)
        Refuse(component->GetName() + " has the languages of its dispatcher");
    SetNames(owner, lines);
    return true;
}

bool TDesignLanguages::IsNeeded(const std::shared_ptr<IOTAComponent>& component,
                                const std::string& property) {
    const bool isLanguages = SameText(property, "NumOfLanguages") || SameText(property, "LangNames");
    return isLanguages && OwnerOf(component).Languages != nullptr;
}

void TDesignLanguages::Reset(const std::shared_ptr<IOTAComponent>& component, const std::string& property) {
    const TOwner owner = OwnerOf(component);
    if (owner.Languages == nullptr || !SameText(property, "Language")) return;
    SetText(component, property, owner.Languages->GetLangNames()[0]);
}

void TDesignLanguages::SetLanguage(const TOwner& owner, const std::string& name) {
    const TStringList names = owner.Languages->GetLangNames();
    const int to = names.IndexOf(name) + 1;
    if (to == 0) Refuse(Format("\"%s\" is none of the languages %s", name, names.CommaText()));
    const int from = owner.Languages->GetActiveLanguage();
    if (from == to) return;
    owner.Languages->SetLanguage(name);
    if (owner.Lang != nullptr)
        owner.Lang->ShowLanguage(from, to);
    else
        ShowOnLinked(*owner.Dispatcher, from, to);
}

void TDesignLanguages::SetCount(const TOwner& owner, const std::string& text) {
    int count = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, count);
    if (result.ec != std::errc{} || result.ptr != end || count < 1 || count > kMostLanguages)
        Refuse(Format("NumOfLanguages takes a whole number from 1 to %d, not \"%s\"", kMostLanguages, text));
    if (count < owner.Languages->GetActiveLanguage())
        Refuse(Format("the form shows \"%s\", which would go", owner.Languages->GetLanguage()));
    if (owner.Lang != nullptr)
        owner.Lang->SetNumLang(count);
    else
        owner.Dispatcher->SetNumOfLanguages(count);
}

/// The active language is stored by its name: it stays the same one under its new name.
void TDesignLanguages::SetNames(const TOwner& owner, const TStringList& names) {
    const int count = owner.Languages->GetLangNames().Count();
    const int active = owner.Languages->GetActiveLanguage();
    if (names.Count() != count)
        Refuse(
            Format("LangNames takes %d names, as many as there are languages, not %d", count, names.Count()));
    for (int i = 0; i < names.Count(); ++i)
        if (names.IndexOf(names[i]) != i || names[i].empty())
            Refuse(Format("LangNames takes every name once, and none that is empty: \"%s\"", names[i]));
    owner.Languages->SetLangNames(names);
    owner.Languages->SetLanguage(names[active - 1]);
}

void TDesignLanguages::ShowOnLinked(TmlLangDispatcher& dispatcher, int from, int to) {
    const auto module = services_.FindModule(formFile_);
    const auto group = services_.GetMainProjectGroup();
    for (int i = 0; module != nullptr && group != nullptr && i < group->GetProjectCount(); ++i) {
        const auto project = group->GetProject(i);
        if (!Lists(*project, module->GetFileName())) continue;
        for (int unit = 0; unit < project->GetModuleCount(); ++unit)
            if (const TOTAModuleInfo info = project->GetModule(unit); !info.FormName.empty())
                ShowOnForm(info.FileName, dispatcher, from, to);
    }
}

/// A form that is opened for it and stays as it is, is closed again.
void TDesignLanguages::ShowOnForm(const std::string& unitFile, TmlLangDispatcher& dispatcher, int from,
                                  int to) {
    const bool wasOpen = services_.FindModule(unitFile) != nullptr;
    const auto module = services_.OpenModule(unitFile, false);
    if (const auto form = module->GetFormEditor()) {
        const auto root = form->GetRootComponent();
        for (int i = 0; i < root->GetComponentCount(); ++i) {
            const TLangPtr lang = runtime_.AsCustomLang(root->GetComponent(i));
            if (lang != nullptr && lang->IsLinkedTo(dispatcher)) lang->ShowLanguage(from, to);
        }
    }
    if (!wasOpen && !module->GetModified()) module->Close();
}

}  // namespace tml

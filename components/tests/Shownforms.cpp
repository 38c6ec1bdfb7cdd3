// Shownforms PROJECT UNIT [LANGUAGE...]
// What a form's file shows, and again after each change of language: the texts that belong into tables, a
// line each. Dump.pas prints the same of the running form, and more.
#include <algorithm>
#include <iostream>
#include <stdexcept>

#include "base/Diskfiles.h"
#include "ide/Headlesside.h"
#include "runtime/Formparts.h"
#include "runtime/Runtime.h"
#include "runtime/Textcollector.h"

namespace tml {
namespace {

std::shared_ptr<TmlCustomLang> LangOf(IMlRuntime& runtime, IOTAComponent& owner) {
    for (int i = 0; i < owner.GetComponentCount(); ++i)
        if (auto lang = runtime.AsCustomLang(owner.GetComponent(i))) return lang;
    throw std::runtime_error("The form has no localization component");
}

/// As the controls show it that sort.
std::string Sorted(const std::string& lines) {
    TStringList list;
    list.SetText(lines);
    list.Sort();
    std::string joined;
    for (int i = 0; i < list.Count(); ++i)
        joined += (i == 0 ? "" : "\n") + list[i];
    return joined;
}

bool Sorts(const TFormPart& part) {
    return std::any_of(part.Properties.begin(), part.Properties.end(), [](const TFormProperty& property) {
        return property.Name == "Sorted" && property.Value.Text == "True";
    });
}

void Print(const std::string& key, const std::string& text) {
    if (text.empty()) return;
    std::cout << key << '=';
    for (const char c : text)
        c == '\\' ? std::cout << "\\\\" : c == '\n' ? std::cout << "\\n" : std::cout << c;
    std::cout << '\n';
}

void PrintTexts(const std::shared_ptr<IOTAComponent>& owner, const std::string& language) {
    std::cout << "== " << language << '\n';
    const TFormParts parts(owner);
    for (const TFormText& text : CollectTexts(parts, TExclusionRules({}, {}, {}, {}), true).Texts) {
        // What a value leaves out of a font is the base language's here, and there what it was before the
        // first change.
        if (text.Table == TStringsType::stFonts) continue;
        const TFormPart* part = parts.OfKey(text.Key);
        const bool sorts = text.Table == TStringsType::stMultiLines && part != nullptr && Sorts(*part);
        Print(text.Key, sorts ? Sorted(text.Text) : text.Text);
    }
}

void Run(const std::string& project, const std::string& unit, const std::vector<std::string>& languages) {
    const auto files = MakeDiskFileSystem();
    const auto runtime = MakeMlRuntime();
    THeadlessIde ide(*files, *runtime);
    ide.OpenProject(project);
    const auto owner = ide.GetModuleServices()->OpenModule(unit, false)->GetFormEditor()->GetRootComponent();
    const auto lang = LangOf(*runtime, *owner);
    PrintTexts(owner, lang->GetLangNames()[lang->GetActiveLanguage() - 1]);
    for (const std::string& language : languages) {
        const int from = lang->GetActiveLanguage();
        lang->SetLanguage(language);
        lang->ShowLanguage(from, lang->GetActiveLanguage());
        PrintTexts(owner, language);
    }
}

}  // namespace
}  // namespace tml

int main(int count, char** arguments) {
    try {
        if (count < 3) throw std::runtime_error("usage: Shownforms PROJECT UNIT [LANGUAGE...]");
        tml::Run(arguments[1], arguments[2], {arguments + 3, arguments + count});
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}

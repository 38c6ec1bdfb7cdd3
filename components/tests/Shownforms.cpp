// Shownforms PROJECT UNIT [LANGUAGE...]
// What a form's file shows, and again after each change of language: the texts that belong into tables, their
// fonts, and where the controls stand when the form is turned to the other side, a line each. Dump.pas prints
// the same of the running form, and more.
#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <unicode/uloc.h>

#include "base/Diskfiles.h"
#include "ide/Headlesside.h"
#include "runtime/Formparts.h"
#include "runtime/Runtime.h"
#include "runtime/Textcollector.h"
#include "tables/Fontvalue.h"
#include "tables/Textmerge.h"

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

std::string PropertyOf(const TFormPart& part, const std::string& name, const std::string& otherwise = "") {
    const auto found = std::find_if(part.Properties.begin(), part.Properties.end(),
                                    [&](const TFormProperty& property) { return property.Name == name; });
    return found == part.Properties.end() ? otherwise : found->Value.Text;
}

/// All of each font that the table speaks of: what the file does not hold is as the class has it.
void PrintFonts(const TFormParts& parts, TmlCustomLang& lang) {
    const TTable fonts = lang.GetTable(TStringsType::stFonts);
    for (const TTableEntry& entry : fonts.Entries()) {
        const TFormPart& part = *parts.OfKey(entry.Key);
        const std::string path = entry.Key.substr(part.Path.size() + 1);
        TFontValue font;
        for (const TFormProperty& property : part.Properties)
            if (property.Name.starts_with(path + '.'))
                font.Take(property.Name.substr(path.size() + 1), property.Value);
        Print(entry.Key + ".Name", font.Name.value_or("default"));
        Print(entry.Key + ".Height", font.Height.value_or("0"));
        std::string styles;
        for (const std::string& style : font.Style.value_or(std::vector<std::string>()))
            styles += (styles.empty() ? "" : ",") + style;
        Print(entry.Key + ".Style", styles);
    }
}

bool IsRightToLeft(TmlCustomLang& lang, int place) {
    const TTable locales = lang.GetTable(TStringsType::stLocales);
    return uloc_isRightToLeft(ShownText(locales.Entries().front(), place).c_str()) != 0;
}

/// The program turns its form and mirrors it, of which the file says nothing.
void PrintSide(const TFormParts& parts, TmlCustomLang& lang) {
    const bool rightToLeft = IsRightToLeft(lang, lang.GetActiveLanguage());
    const bool isTurned = rightToLeft != IsRightToLeft(lang, 1);
    const TFormPart& form = parts.Items().front();
    Print(".BiDiMode", isTurned ? rightToLeft ? "bdRightToLeft" : "bdLeftToRight"
                                : PropertyOf(form, "BiDiMode", "bdLeftToRight"));
    for (const TFormPart& part : parts.Items()) {
        if (part.Holder < 0 || part.TranslatesItself || PropertyOf(part, "TabOrder").empty()) continue;
        const TFormPart& holder = parts.Items()[static_cast<std::size_t>(part.Holder)];
        const int left = std::stoi(PropertyOf(part, "Left"));
        const int width = std::stoi(PropertyOf(holder, "ClientWidth", PropertyOf(holder, "Width")));
        Print(part.Path + ".Left",
              std::to_string(isTurned ? width - left - std::stoi(PropertyOf(part, "Width")) : left));
    }
}

void PrintTexts(const std::shared_ptr<IOTAComponent>& owner, TmlCustomLang& lang,
                const std::string& language) {
    std::cout << "== " << language << '\n';
    const TFormParts parts(owner);
    PrintFonts(parts, lang);
    PrintSide(parts, lang);
    for (const TFormText& text : CollectTexts(parts, TExclusionRules({}, {}, {}, {}), true).Texts) {
        if (text.Table == TStringsType::stFonts)
            continue;  // a form's file may hold less of one than is shown
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
    PrintTexts(owner, *lang, lang->GetLangNames()[lang->GetActiveLanguage() - 1]);
    for (const std::string& language : languages) {
        const int from = lang->GetActiveLanguage();
        lang->SetLanguage(language);
        lang->ShowLanguage(from, lang->GetActiveLanguage());
        PrintTexts(owner, *lang, language);
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

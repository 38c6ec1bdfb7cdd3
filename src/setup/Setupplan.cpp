#include "setup/Setupplan.h"

#include <algorithm>
#include <array>

#include "base/Format.h"
#include "base/Utf8.h"
#include "platform/Projectoptions.h"
#include "setup/Requiredpackage.h"
#include "setup/Setupplanner.h"
#include "tables/Languages.h"

namespace tml {
namespace {

constexpr std::array<std::string_view, 7> kSmartRules = {"Empty",   "Number",     "Punctuation", "Path",
                                                         "Address", "Identifier", "EqualsName"};

bool IsClassName(std::string_view name) {
    return name.size() > 1 && name[0] == 'T' && name[1] >= 'A' && name[1] <= 'Z';
}

std::string Option(TContext& context, const char* name) {
    const auto settings = context.Host.Runtime->mlLangProjectSettings;
    if (settings == nullptr) return {};
    const TOptionValue value = settings->GetOptionValue(name);
    const auto* text = std::get_if<std::string>(&value);
    return text == nullptr || context.Rows.FormNames.FindForms(*text).empty() ? std::string() : *text;
}

std::string FileNames(const std::vector<std::string>& files) {
    std::string text;
    for (const std::string& file : files)
        text += (text.empty() ? "" : ", ") + FileNameOf(file);
    return text;
}

std::string StringsStep(const TFormSetup& form) {
    if (!form.Strings) return "moves the strings of its source into the component";
    if (form.Strings->empty()) return "finds no strings in its source";
    const int left = static_cast<int>(form.Strings->size()) - form.CountTaken();
    std::string text = Format("moves %d of the source's strings into the component", form.CountTaken());
    if (left > 0) text += Format(", leaves %d", left);
    return text;
}

}  // namespace

TSetupWishes DefaultWishes(TContext& context) {
    const TSettingValues& settings = context.Settings.Get();
    TSetupWishes wishes;
    wishes.ComponentClass = settings.DefaultComp;
    wishes.Languages = FitLangNames(SplitLangNames(settings.DefaultLangNames), settings.NumLang);
    wishes.DispatcherForm = Option(context, "DispatcherForm");
    if (HasCommonContainer(context, wishes.ComponentClass))
        wishes.ContainerForm = Option(context, "CommonContainerForm");
    return wishes;
}

TExclusionList ListOfExclusion(std::string_view entry) {
    const std::string_view name = Trim(entry.substr(0, entry.find(':')));
    if (std::any_of(kSmartRules.begin(), kSmartRules.end(),
                    [&](std::string_view rule) { return SameText(rule, name); }))
        return TExclusionList::SmartExcludeProps;
    const bool isProperty = name.starts_with('!') || name.find('.') != std::string_view::npos;
    return isProperty || IsClassName(name) ? TExclusionList::ExcludedProperties
                                           : TExclusionList::DoNotTranslate;
}

int TFormSetup::CountTaken() const {
    if (!Strings) return 0;
    return static_cast<int>(
        std::count_if(Strings->begin(), Strings->end(), [](const TSetupString& one) { return one.Taken; }));
}

int TSetupPlan::CountReady() const {
    return static_cast<int>(
        std::count_if(Forms.begin(), Forms.end(), [](const TFormSetup& form) { return form.IsReady(); }));
}

TStringList TSetupPlan::StepsOf(const TFormSetup& form) const {
    TStringList steps;
    const auto add = [&](bool is, const std::string& text) {
        if (is) steps.Add(text);
    };
    const std::string languages = Wishes.Languages.CommaText();
    add(form.InsertsDispatcher, Format("inserts %s (TmlLangDispatcher)", form.OwnDispatcher));
    add(form.SetsDispatcher, Format("sets the languages of %s: %s", form.OwnDispatcher, languages));
    add(form.Inserts, Format("inserts %s (%s)", form.Component, form.ClassName));
    add(!form.Inserts && form.Ancestor.empty(), Format("keeps %s (%s)", form.Component, form.ClassName));
    add(!form.Ancestor.empty(), Format("inherits its component from %s", form.Ancestor));
    add(form.SetsLanguages, Format("sets the languages: %s", languages));
    add(!form.Dispatcher.empty(), Format("links the component to the dispatcher %s", form.Dispatcher));
    add(!form.Container.empty(), Format("has %s as its common container", form.Container));
    for (const TExclusionList list : kExclusionLists)
        for (const std::string& entry : form.Exclusions[list])
            steps.Add(Format("excludes %s (%s)", entry, PropertyOf(list)));
    for (const TFormProperty& property : form.Properties)
        steps.Add(Format("sets %s to %s", property.Name, property.Value.Text));
    steps.Add("fills the tables from the form");
    add(Wishes.MovesStrings, StringsStep(form));
    return steps;
}

std::vector<std::string> TSetupPlan::FilesOf(const TFormSetup& form) const {
    std::vector<std::string> files;
    const bool movesStrings = Wishes.MovesStrings && (!form.Strings || form.CountTaken() > 0);
    if (!form.Declaration.empty()) files.push_back(form.Declaration);
    if (movesStrings && form.Declaration != form.FileName) files.push_back(form.FileName);
    files.push_back(form.FormFile);
    return files;
}

std::string TSetupPlan::TextOf(const TFormSetup& form) const {
    std::string text = Format("%s (%s)\r\n", form.FormName, FileNameOf(form.FileName));
    if (!form.IsReady()) return text + Format("    is left as it is: %s\r\n", form.Problem);
    for (const std::string& step : StepsOf(form))
        text += Format("    %s\r\n", step);
    for (const std::string& remark : form.Remarks)
        text += Format("    note: %s\r\n", remark);
    return text + Format("    changes %s\r\n", FileNames(FilesOf(form)));
}

std::string TSetupPlan::Head() const {
    std::string text =
        Format("Forms that will be set up: %d of %d\r\n", CountReady(), static_cast<int>(Forms.size()));
    if (!PackageProject.empty())
        text += Format("%s will require the package %s\r\n", FileNameOf(PackageProject), kRuntimePackage);
    for (const std::string& remark : Remarks)
        text += Format("Note: %s\r\n", remark);
    return text;
}

std::string TSetupPlan::Text() const {
    std::string text = Head();
    for (const TFormSetup& form : Forms)
        text += "\r\n" + TextOf(form);
    return text;
}

}  // namespace tml

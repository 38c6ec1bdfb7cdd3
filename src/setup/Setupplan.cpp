#include "setup/Setupplan.h"

#include <algorithm>

#include "base/Format.h"
#include "base/Utf8.h"
#include "platform/Projectoptions.h"
#include "setup/Requiredpackage.h"
#include "setup/Setupplanner.h"
#include "tables/Exclusionrules.h"
#include "tables/Languages.h"

namespace tml {
namespace {

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

/// "" where no string moves.
std::string StringsStep(const TFormSetup& form) {
    if (!form.Strings) return "moves the strings of its source into the component";
    const int left = static_cast<int>(form.Strings->size()) - form.CountTaken();
    if (form.CountTaken() == 0) return {};
    std::string text = Format("moves %d of the source's strings into the component", form.CountTaken());
    if (left > 0) text += Format(", leaves %d", left);
    return text;
}

std::string DroppedText(int count) {
    return Format(count == 1 ? "%d translation is dropped with what is excluded"
                             : "%d translations are dropped with what is excluded",
                  count);
}

std::string LostText(int count) {
    return Format(count == 1 ? "%d text goes with the languages that are given up"
                             : "%d texts go with the languages that are given up",
                  count);
}

/// What it has, or is to have, of its component.
std::string ComponentOf(const TFormSetup& form) {
    if (form.Inserts) return {};
    if (!form.Ancestor.empty()) return Format(": inherits %s from %s", form.Component, form.Ancestor);
    return Format(": keeps %s (%s)", form.Component, form.ClassName);
}

std::string Located(const EBadInput& error, const std::string& unit) {
    if (error.File().empty() || (error.Line() == 0 && error.File() == unit)) return error.Problem();
    const std::string file = FileNameOf(error.File());
    return error.Line() == 0 ? Format("%s (%s)", error.Problem(), file)
                             : Format("%s (%s:%d)", error.Problem(), file, error.Line());
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
    const std::vector<std::string_view> rules = SmartRuleNames();
    if (std::any_of(rules.begin(), rules.end(), [&](std::string_view rule) { return SameText(rule, name); }))
        return TExclusionList::SmartExcludeProps;
    const bool isProperty = name.starts_with('!') || name.find('.') != std::string_view::npos;
    return isProperty || IsClassName(name) ? TExclusionList::ExcludedProperties
                                           : TExclusionList::DoNotTranslate;
}

void TFormSetup::Refuse(const EBadInput& error) {
    Problem = error.what();
    Reason = Located(error, FileName);
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
    add(form.SetsLanguages, Format("sets the languages: %s", languages));
    for (const std::string& lost : form.GivenUp)
        steps.Add(Format("gives up %s", lost));
    add(!form.Dispatcher.empty(), Format("links the component to the dispatcher %s", form.Dispatcher));
    add(!form.Container.empty(), Format("has %s as its common container", form.Container));
    for (const TExclusionList list : kExclusionLists)
        for (const std::string& entry : form.Exclusions[list])
            steps.Add(Format("excludes %s (%s)", entry, PropertyOf(list)));
    for (const TFormProperty& property : form.Properties)
        steps.Add(Format("sets %s to %s", property.Name, property.Value.Text));
    add(form.FillsTables, "fills the tables from the form");
    const std::string strings = Wishes.MovesStrings ? StringsStep(form) : std::string();
    add(!strings.empty(), strings);
    return steps;
}

TStringList TSetupPlan::DoneTo(TFormSetup form, int moved) const {
    form.Strings.emplace();
    TStringList steps = StepsOf(form);
    if (moved > 0) steps.Add(Format("moves %d of the source's strings into the component", moved));
    return steps;
}

std::string TSetupPlan::LossText() const {
    int lost = 0, dropped = 0;
    for (const TFormSetup& form : Forms) {
        if (!form.IsReady()) continue;
        lost += form.LostTexts;
        dropped += form.Dropped;
    }
    std::string text = lost == 0 ? std::string() : LostText(lost);
    if (dropped > 0) text += (lost == 0 ? "" : "; ") + DroppedText(dropped);
    return text;
}

bool TSetupPlan::HasWork() const {
    return !PackageProject.empty() ||
           std::any_of(Forms.begin(), Forms.end(), [this](const TFormSetup& form) { return Changes(form); });
}

std::vector<std::string> TSetupPlan::FilesOf(const TFormSetup& form) const {
    std::vector<std::string> files;
    if (!Changes(form)) return files;
    const bool movesStrings = Wishes.MovesStrings && (!form.Strings || form.CountTaken() > 0);
    if (!form.Declaration.empty()) files.push_back(form.Declaration);
    if (movesStrings && form.Declaration != form.FileName) files.push_back(form.FileName);
    files.push_back(form.FormFile);
    return files;
}

std::string TSetupPlan::TextOf(const TFormSetup& form) const {
    std::string text = Format("%s (%s)", form.FormName, FileNameOf(form.FileName));
    if (!form.IsReady()) return text + Format("\r\n    is left as it is: %s\r\n", form.Problem);
    text += ComponentOf(form) + "\r\n";
    const TStringList steps = StepsOf(form);
    for (const std::string& step : steps)
        text += Format("    %s\r\n", step);
    for (const std::string& remark : form.Remarks)
        text += Format("    note: %s\r\n", remark);
    if (form.Dropped > 0) text += Format("    note: %s\r\n", DroppedText(form.Dropped));
    if (steps.Empty()) return text + "    nothing to do\r\n";
    return text + Format("    changes %s\r\n", FileNames(FilesOf(form)));
}

std::string TSetupPlan::Head() const {
    const auto changing = static_cast<int>(
        std::count_if(Forms.begin(), Forms.end(), [this](const TFormSetup& form) { return Changes(form); }));
    const int all = static_cast<int>(Forms.size());
    std::string text = Format("Forms that will be set up: %d of %d\r\n", changing, all);
    if (CountReady() > changing) text += Format("Forms with nothing to do: %d\r\n", CountReady() - changing);
    if (CountReady() < all) text += Format("Forms that are not ready: %d\r\n", all - CountReady());
    if (!PackageProject.empty())
        text += Format("%s will require the package %s\r\n", FileNameOf(PackageProject), kRuntimePackage);
    for (const std::string& remark : Remarks)
        text += Format("Note: %s\r\n", remark);
    return text;
}

std::string TSetupPlan::Text() const {
    std::string text = Head();
    for (const TFormSetup& form : Forms)
        if (!form.IsReady() || Changes(form)) text += "\r\n" + TextOf(form);
    return text;
}

}  // namespace tml

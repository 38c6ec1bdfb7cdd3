#include "scan/Scaninput.h"

#include <utility>

#include "base/Errors.h"
#include "core/Modules.h"

namespace tml {

TScanInput ScanInputOf(const TSettingValues& settings, ICommonLibrary* common) {
    TScanInput input;
    input.Skip = {.SkipWords = settings.SkipWords,
                  .SkipLines = settings.SkipLines,
                  .ExcludeChars = settings.ExcludeChars,
                  .IgnorableLength = settings.IgnorableLength,
                  .UseRegExpForSkip = settings.UseRegExpForSkip};
    input.HCPrefix = settings.HCPrefix;
    input.ReplaceMethod = settings.ReplaceMethod;
    input.CommentsLength = settings.CommentsLength;
    input.NoCommentsInSources = settings.NoCommentsInSources;
    input.Component.WithForm = settings.AddFormName;
    input.Common = common;
    return input;
}

void TakeUnit(TScanInput& input, IOTAModule& unit) {
    input.Source = unit.GetSourceEditor(0)->GetSource();
    if (unit.GetSourceEditorCount() > 1) input.Header = unit.GetSourceEditor(1)->GetSource();
}

std::string InsertedName(const std::string& className, const std::string& formName) {
    return className.substr(1) + (formName.empty() ? "" : "_" + formName);
}

namespace {

/// Where the unit does not declare the form's class nothing can be inserted, but its strings can be found.
std::string FreeName(IOTAFormEditor& editor, const std::string& formName, const std::string& className) {
    std::string name = InsertedName(className, formName);
    try {
        return editor.FreeName(name, className);
    } catch (const EBadInput&) {
        return name;
    }
}

}  // namespace

TReceiver ReceiverOf(IMlRuntime& runtime, IOTAModule& form, const std::string& defaultClass) {
    TReceiver receiver;
    const auto editor = form.GetFormEditor();
    receiver.Component.FormName = form.GetFormName();
    receiver.Component.FormClass = editor->GetRootComponent()->GetComponentType();
    const auto component = FindCustomLang(runtime, *editor);
    receiver.Component.ComponentName = component != nullptr
                                           ? component->GetName()
                                           : FreeName(*editor, receiver.Component.FormName, defaultClass);
    if (component != nullptr) receiver.Existing = component->GetTable(TStringsType::stStrings);
    return receiver;
}

void TakeReceiver(TScanInput& input, TReceiver receiver, bool isOwnUnit) {
    receiver.Component.WithForm = input.Component.WithForm || !isOwnUnit;
    input.Component = std::move(receiver.Component);
    input.Existing = std::move(receiver.Existing);
}

}  // namespace tml

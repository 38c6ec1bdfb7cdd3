#include "scan/Scaninput.h"

#include <utility>

#include "base/Errors.h"
#include "core/Modules.h"

namespace tml {

namespace {

void TakeStrings(TReceiver& receiver, TmlCustomLang& lang) {
    const TTable table = lang.GetTable(TStringsType::stStrings);
    for (const TTableEntry& entry : table.Entries())
        if (receiver.Existing.Find(entry.Key) < 0) receiver.Existing.Append(entry);
}

/// A list that the form stores need not hold all that its ancestors have.
void TakeAncestors(TReceiver& receiver, TmlCustomLang& lang) {
    const auto ancestor = lang.GetInherited();
    if (ancestor == nullptr) return;
    TakeStrings(receiver, *ancestor);
    TakeAncestors(receiver, *ancestor);
}

}  // namespace

TScanInput ScanInputOf(const TSettingValues& settings, ICommonLibrary* common) {
    TScanInput input;
    input.Skip = {.SkipWords = settings.SkipWords,
                  .SkipLines = settings.SkipLines,
                  .ExcludeChars = settings.ExcludeChars,
                  .IgnorableLength = settings.IgnorableLength,
                  .UseRegExpForSkip = settings.UseRegExpForSkip};
    input.HCPrefix = settings.HCPrefix;
    input.IDsFromTexts = settings.IDsFromTexts;
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

void TakeRelative(TReceiver& receiver, IMlRuntime& runtime, IOTAModule& form) {
    const auto lang = FindCustomLang(runtime, *form.GetFormEditor());
    if (lang != nullptr) TakeStrings(receiver, *lang);
}

TReceiver ReceiverOf(IOTAModule& form, const TLangPlan& plan) {
    TReceiver receiver;
    receiver.Component.FormName = form.GetFormName();
    receiver.Component.FormClass = form.GetFormEditor()->GetRootComponent()->GetComponentType();
    receiver.Component.ComponentName = plan.Name;
    if (plan.Lang == nullptr) return receiver;
    receiver.Existing = plan.Lang->GetTable(TStringsType::stStrings);
    TakeAncestors(receiver, *plan.Lang);
    return receiver;
}

TReceiver ReceiverOf(IMlRuntime& runtime, IOTAModule& form, const std::string& defaultClass) {
    TLangPlan plan;
    try {
        plan = PlanOn(runtime, *form.GetFormEditor(), form.GetFormName(), defaultClass);
    } catch (const EBadInput&) {
        // An insertion says what is wrong.
    }
    if (plan.Name.empty()) plan.Name = InsertedName(defaultClass, form.GetFormName());
    return ReceiverOf(form, plan);
}

void TakeReceiver(TScanInput& input, TReceiver receiver, bool isOwnUnit) {
    receiver.Component.WithForm = input.Component.WithForm || !isOwnUnit;
    input.Component = std::move(receiver.Component);
    input.Existing = std::move(receiver.Existing);
}

}  // namespace tml

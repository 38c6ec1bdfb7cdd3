#include "scan/Constreplace.h"

#include "base/Files.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Modules.h"

namespace tml {
namespace {

constexpr const char* kOnChangeLanguage = "OnChangeLanguage";

/// The form's own or, where it says nothing of the event, its ancestor's: a method of that name stands in
/// for the ancestor's. Of a component that is not there yet: "".
std::string HandlerOf(const std::shared_ptr<IOTAComponent>& component, const char* event) {
    if (component == nullptr) return {};
    const auto value = component->GetPropValue(event);
    if (!value) return HandlerOf(component->GetAncestor(), event);
    const bool isName = value->Kind == TFormValueKind::Identifier && !SameText(value->Text, "nil");
    return isName ? value->Text : std::string();
}

}  // namespace

std::string NoConstsMessage(const std::string& unitFile) {
    return Format("There are no strings in CONST section of \"%s\" unit!", FileNameOf(unitFile));
}

TConstRun::TConstRun(TContext& context, const TScanInput& input, std::string formName, std::string formUnit)
    : context_(context), formName_(std::move(formName)), formUnit_(std::move(formUnit)) {
    const TSettingValues& settings = context.Settings.Get();
    input_ = {input, settings.CnstPrefix, settings.CnstPermanent, settings.EmptyConstsValues};
}

TScanResult TConstRun::Scan() {
    TConstScanResult result = ScanConsts(input_);
    records_ = std::move(result.Records);
    return {ConstRows(input_, records_), std::move(result.Skipped)};
}

void TConstRun::Plan(const TmlFoundSourceStrings& kept, const std::shared_ptr<const std::string>& text,
                     TChangeSet& changes) const {
    const auto editor = GetFormEditor(context_, formName_);
    const std::string& component = input_.Scan.Component.ComponentName;
    const auto formSource = GetModuleFromFileName(context_, formUnit_)->GetSourceEditor(0);
    const TConstForm form{formSource->GetSource(), input_.Scan.Component.ClassName(), component,
                          HandlerOf(editor->GetRootComponent(), "OnCreate"),
                          HandlerOf(editor->FindComponent(component), kOnChangeLanguage)};
    const TConstChanges planned = RewriteConsts(kept, input_, records_, form);
    ProveConsts(kept, input_, records_, form, planned);
    changes.Sources.push_back({input_.Scan.FileName(), text, planned.Unit});
    if (!planned.FormUnit.empty()) {
        changes.Sources.push_back({formUnit_, formSource->GetText(), planned.FormUnit});
        changes.UsedUnits.emplace_back(formUnit_, FileNameOf(input_.Scan.FileName()));
    }
    const auto set = [&](const std::string& owner, const char* event, const std::string& handler) {
        if (!handler.empty())
            changes.Properties.push_back({formName_, owner, event, TFormValue::Identifier(handler)});
    };
    set(formName_, "OnCreate", planned.OnCreate);
    set(component, kOnChangeLanguage, planned.OnChangeLanguage);
}

}  // namespace tml

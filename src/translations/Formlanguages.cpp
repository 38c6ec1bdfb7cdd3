#include "translations/Formlanguages.h"

#include <algorithm>
#include <deque>

#include "base/Errors.h"
#include "base/Format.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "tables/Languages.h"
#include "translations/Langconfig.h"

namespace tml {
namespace {

constexpr std::string_view kEditDispatcher =
    "Selected component is linked to a dispatcher! Do you wish to edit languages of the dispatcher "
    "component?";

/// The names to start from for a form without a component.
TStringList DefaultNames(const TSettingValues& settings) {
    return FitLangNames(SplitLangNames(settings.DefaultLangNames), settings.NumLang);
}

/// The dispatcher that drives the component of a form. It may sit on another form, which is then opened;
/// the lease makes that as it was again.
struct TLinkedDispatcher {
    std::unique_ptr<TModuleLease> Lease;
    std::shared_ptr<TmlLangDispatcher> Dispatcher;
};

TLinkedDispatcher FindDispatcher(TContext& context, TmlCustomLang* lang) {
    if (lang == nullptr) return {};
    std::vector<std::string> closed;
    for (const auto& row : context.Rows.FormNames.Items())
        if (!IsFileOpen(context, row->FileName)) closed.push_back(row->FileName);
    TLinkedDispatcher found{nullptr, lang->GetDispatcher()};
    const auto opened = std::find_if(closed.begin(), closed.end(),
                                     [&](const std::string& file) { return IsFileOpen(context, file); });
    if (opened != closed.end()) found.Lease = std::make_unique<TModuleLease>(context, *opened, false);
    return found;
}

/// The dispatcher, where there is one and the person wants to edit it.
std::shared_ptr<TmlLangDispatcher> AskForDispatcher(TContext& context,
                                                    const std::shared_ptr<TmlLangDispatcher>& dispatcher) {
    if (dispatcher == nullptr) return nullptr;
    const TModalResult answer = context.Dialogs().MessageDlg(std::string(kEditDispatcher),
                                                             TMsgDlgType::mtConfirmation, {mrYes, mrNo});
    return answer == mrYes ? dispatcher : nullptr;
}

/// Another base language changes what all texts are translated from.
bool ConfirmBase(TContext& context, const std::string& base, const std::string& newBase,
                 const TStringList& formerNames) {
    if (formerNames[0] == base) return true;
    return context.Dialogs().MessageDlg(
               Format("%s would be the base language in place of %s, for every text. Continue?", newBase,
                      base),
               TMsgDlgType::mtWarning, {mrYes, mrNo}) == mrYes;
}

/// Gives the names to the dispatcher, or to the components of the row and the selected rows behind it.
void ApplyNames(TContext& context, TFormRow& row, const TStringList& names, const TStringList& formerNames,
                TmlLangDispatcher* dispatcher) {
    if (dispatcher != nullptr) {
        dispatcher->SetLangNames(names);
        MarkModifiedForm(context, row.FormName);
        return;
    }
    TLangSetUp setUp;
    setUp.NumLang = names.Count();
    setUp.LangNamesText = names.Text();
    setUp.FormerNames = formerNames;
    setUp.InsertIfMissing = true;
    SetUpLang(context, &row, setUp);
}

}  // namespace

void sbLanguagesClick(TContext& context) {
    TFormRow* first = context.Rows.Active().FirstSelected();
    if (first == nullptr) return;
    TModuleLease lease(context, first->FileName);
    const auto lang = GetmlLang(context, first->FormName);
    const TLinkedDispatcher linked = FindDispatcher(context, lang.get());
    const auto dispatcher = AskForDispatcher(context, linked.Dispatcher);
    TStringList names = dispatcher != nullptr ? dispatcher->GetLangNames()
                        : lang != nullptr     ? lang->GetLangNames()
                                              : DefaultNames(context.Settings.Get());
    const TStringList present = names;
    TStringList formerNames;
    if (ConfigureLanguages(context, names, &formerNames) != mrOk) return;
    const bool hasBase = lang != nullptr && !present.Empty() && !names.Empty();
    if (hasBase && !ConfirmBase(context, present[0], names[0], formerNames)) return;
    std::deque<TRowGuard> rows;
    for (TFormRow* row = first; row != nullptr; row = context.Rows.Active().NextSelected(*row))
        rows.emplace_back(*row);
    const auto scope = BeginCommand(context, "Languages");
    // What a form fails with takes back that form alone.
    TAllSteps steps;
    steps.Try([&] { ApplyNames(context, *first, names, formerNames, dispatcher.get()); });
    if (linked.Lease != nullptr) linked.Lease->Save();
    lease.Save();
    scope->Commit();
    for (TRowGuard& row : rows)
        row.Keep();
    steps.Finish();
}

}  // namespace tml

#include "translations/Formlanguages.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Format.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "tables/Languageplaces.h"
#include "tables/Languages.h"
#include "translations/Langconfig.h"
#include "translations/Langlosses.h"

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

/// Whether there is a dispatcher and the person wants to edit it.
bool EditsDispatcher(TContext& context, const TLinkedDispatcher& linked) {
    return linked.Dispatcher != nullptr &&
           context.Dialogs().MessageDlg(std::string(kEditDispatcher), TMsgDlgType::mtConfirmation,
                                        {mrYes, mrNo}) == mrYes;
}

TStringList PresentNames(TContext& context, TmlLangDispatcher* dispatcher, TmlCustomLang* lang) {
    if (dispatcher != nullptr) return dispatcher->GetLangNames();
    return lang != nullptr ? lang->GetLangNames() : DefaultNames(context.Settings.Get());
}

/// The names that the person wants, with the place (1-based) that each language has among the present ones.
TLangSetUp SetUpOf(const TStringList& names, std::vector<int> places, const TStringList& present) {
    TLangSetUp setUp;
    setUp.NumLang = names.Count();
    setUp.LangNamesText = names.Text();
    setUp.InsertIfMissing = true;
    for (const int place : places)
        setUp.FormerNames.Add(place == 0 ? std::string() : present[place - 1]);
    setUp.Places = std::move(places);
    return setUp;
}

/// For forms whose languages are their own.
TLangSetUp ByNames(TLangSetUp setUp) {
    setUp.Places.clear();
    return setUp;
}

/// What the dispatcher or the rows would lose; setUp is that of the first row.
std::string AllLosses(TContext& context, const std::vector<TFormRow*>& rows, const TLinkedDispatcher& linked,
                      const TLangSetUp& setUp, const TStringList& deleted) {
    if (linked.Dispatcher != nullptr)
        return LossOf(*linked.Dispatcher, linked.Dispatcher->GetComponent()->GetName(), setUp, deleted);
    std::string losses = LossesOf(context, {rows.front()}, setUp, deleted);
    const std::string further = LossesOf(context, {rows.begin() + 1, rows.end()}, ByNames(setUp), deleted);
    if (!losses.empty() && !further.empty()) losses += "; ";
    return losses + further;
}

bool ConfirmLosses(TContext& context, const std::string& losses) {
    if (losses.empty()) return true;
    return context.Dialogs().MessageDlg(Format("These languages would give up %s. Continue?", losses),
                                        TMsgDlgType::mtWarning, {mrYes, mrNo}) == mrYes;
}

void SetLanguages(TContext& context, const std::vector<TFormRow*>& rows, const TLinkedDispatcher& linked,
                  const TLangSetUp& setUp, TOpenedMeanwhile& opened) {
    if (linked.Dispatcher == nullptr) {
        ConfigureLangComponent(context, rows.front(), setUp);
        SetUpLang(context, rows.size() > 1 ? rows[1] : nullptr, ByNames(setUp), opened);
        return;
    }
    SetUpDispatcher(context, *linked.Dispatcher, setUp);
    MarkModifiedForm(context, rows.front()->FormName);
    if (linked.Lease != nullptr) linked.Lease->Save();
}

}  // namespace

void sbLanguagesClick(TContext& context) {
    std::vector<TFormRow*> rows;
    for (TFormRow* row = context.Rows.Active().FirstSelected(); row != nullptr;
         row = context.Rows.Active().NextSelected(*row))
        rows.push_back(row);
    if (rows.empty()) return;
    TOpenedMeanwhile opened(context);
    TModuleLease lease(context, rows.front()->FileName, opened);
    const auto lang = GetmlLang(context, *rows.front());
    TLinkedDispatcher linked = FindDispatcher(context, lang.get());
    if (!EditsDispatcher(context, linked)) linked = {};
    const TStringList present = PresentNames(context, linked.Dispatcher.get(), lang.get());
    TLangSetUp setUp;
    const auto confirm = [&](const TStringList& names, const std::vector<int>& places) {
        setUp = SetUpOf(names, places, present);
        if (lang == nullptr) setUp = ByNames(setUp);
        return ConfirmLosses(context,
                             AllLosses(context, rows, linked, setUp, LostLanguages(present, places)));
    };
    TStringList names = present;
    if (ConfigureLanguages(context, names, confirm) != mrOk) return;
    const auto scope = BeginCommand(context, "Languages");
    // What a form fails with takes back that form alone.
    TAllSteps steps;
    steps.Try([&] { SetLanguages(context, rows, linked, setUp, opened); });
    lease.Save();
    opened.Save();
    scope->Commit();
    steps.Finish();
}

bool EditDispatcherLanguages(TContext& context, TmlLangDispatcher& dispatcher) {
    const TStringList present = dispatcher.GetLangNames();
    TLangSetUp setUp;
    const auto confirm = [&](const TStringList& names, const std::vector<int>& places) {
        setUp = SetUpOf(names, places, present);
        const std::string name = dispatcher.GetComponent()->GetName();
        return ConfirmLosses(context, LossOf(dispatcher, name, setUp, LostLanguages(present, places)));
    };
    TStringList names = present;
    if (ConfigureLanguages(context, names, confirm) != mrOk) return false;
    const auto scope = BeginCommand(context, "Languages");
    SetUpDispatcher(context, dispatcher, setUp);
    scope->Commit();
    return true;
}

}  // namespace tml

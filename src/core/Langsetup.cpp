#include "core/Langsetup.h"

#include <algorithm>
#include <functional>
#include <map>

#include "base/Format.h"
#include "core/Dispatchers.h"
#include "core/Formfamilies.h"
#include "core/Modules.h"
#include "tables/Languages.h"

namespace tml {
namespace {

TLanguageMoves MovesOf(ILanguages& languages, const TLangSetUp& setUp) {
    return TLanguageMoves::Of(PlacesOf(languages, setUp), languages.GetActiveLanguage());
}

/// The texts of every table follow their languages, the properties of the form the language that it shows.
void MoveTexts(TmlCustomLang& lang, const TLanguageMoves& moves) {
    if (moves.AreNone(lang.GetNumLang())) return;
    if (moves.Shown() != moves.Active) lang.ShowLanguage(moves.Active, moves.Shown());
    lang.MoveLanguages(moves.Places);
}

void SetNames(ILanguages& languages, const TLangSetUp& setUp) {
    if (setUp.LangNamesText.empty()) return;
    TStringList names = SplitLangNames(setUp.LangNamesText);
    while (names.Count() > setUp.NumLang)
        names.Delete(names.Count() - 1);
    languages.SetLangNames(names);
}

void SetActive(ILanguages& languages, int active) {
    const TStringList names = languages.GetLangNames();
    if (active <= names.Count()) languages.SetLanguage(names[active - 1]);
}

/// The places of the columns of a linked component. It may have more columns than its dispatcher had
/// languages: a new language gets the one at its place, the others stay behind the last language.
std::vector<int> LinkedPlaces(std::vector<int> places, int languages, int columns) {
    for (int place = languages + 1; place <= columns; ++place) {
        const auto index = static_cast<std::size_t>(place) - 1;
        const bool isNew = index < places.size() && places[index] == 0;
        if (isNew)
            places[index] = place;
        else
            places.push_back(place);
    }
    return places;
}

/// Brings a linked component, whose own number and names count without its dispatcher, in step with it.
void FollowDispatcher(TmlCustomLang& lang, TmlLangDispatcher& dispatcher, TLanguageMoves moves,
                      int languages) {
    const TStringList own = lang.GetLangNames();
    TStringList names = dispatcher.GetLangNames();
    moves.Places = LinkedPlaces(std::move(moves.Places), languages, lang.GetNumLang());
    while (names.Items().size() < moves.Places.size())
        names.Add(own[moves.Places[names.Items().size()] - 1]);
    MoveTexts(lang, moves);
    lang.SetLangNames(names);
    lang.SetNumLang(names.Count());
}

/// Calls work for each localization component of the row's form that is linked to the dispatcher.
template <typename Work>
void WithLinked(TContext& context, TFormRow& row, TmlLangDispatcher& dispatcher, Work work) {
    TModuleLease lease(context, row.FileName);
    const auto editor = GetFormEditorFromModule(GetModuleFromFileName(context, row.FileName));
    const auto root = editor == nullptr ? nullptr : editor->GetRootComponent();
    for (int i = 0; root != nullptr && i < root->GetComponentCount(); ++i)
        if (const auto lang = context.Host.Runtime->AsCustomLang(root->GetComponent(i)))
            if (lang->IsLinkedTo(dispatcher)) work(*root, *lang);
    lease.Save();
}

int AncestorsOf(IOTAComponent& form) {
    const auto ancestor = form.GetOrigin() == TComponentOrigin::coInherited ? form.GetAncestor() : nullptr;
    return ancestor == nullptr ? 0 : 1 + AncestorsOf(*ancestor);
}

/// The rows with components that are linked to the dispatcher, descendants first: they read through their
/// ancestors, which are to be as they were then.
std::vector<TFormRow*> LinkedRows(TContext& context, TmlLangDispatcher& dispatcher) {
    std::multimap<int, TFormRow*, std::greater<>> rows;
    for (const auto& row : context.Rows.FormNames.Items()) {
        int depth = -1;
        if (row->HasComponent())
            WithLinked(context, *row, dispatcher,
                       [&](IOTAComponent& root, TmlCustomLang&) { depth = AncestorsOf(root); });
        if (depth >= 0) rows.emplace(depth, row.get());
    }
    std::vector<TFormRow*> sorted;
    for (const auto& [depth, row] : rows)
        sorted.push_back(row);
    return sorted;
}

/// Calls work for the component of each form that inherits that of the row and its languages; it gives
/// whether it has changed the form.
template <typename Work>
void WithHeirs(TContext& context, const TFormRow& row, Work work) {
    for (const std::string& unit : FamiliesOf(context.Rows.FormNames).DescendantsOf(row.FormName)) {
        TModuleLease lease(context, unit);
        const auto module = GetModuleFromFileName(context, unit);
        const auto editor = GetFormEditorFromModule(module);
        const auto lang = editor == nullptr ? nullptr : FindCustomLang(*context.Host.Runtime, *editor);
        if (lang == nullptr || lang->GetComponent()->GetPropValue("LangNames.Strings").has_value()) continue;
        if (!work(*lang)) continue;
        MarkModifiedForm(context, module->GetFormName());
        lease.Save();
    }
}

/// False for a form that shows its base language.
bool ShowBase(TmlCustomLang& lang) {
    const int active = LanguagesInForce(lang)->GetActiveLanguage();
    if (active > 1) lang.ShowLanguage(active, 1);
    return active > 1;
}

}  // namespace

std::vector<int> PlacesOf(ILanguages& languages, const TLangSetUp& setUp) {
    if (!setUp.Places.empty()) return setUp.Places;
    const TStringList present = languages.GetLangNames();
    // Whether there can be so many is asked when they are set.
    const int count = std::clamp(setUp.NumLang, 1, kMostLanguages);
    if (setUp.LangNamesText.empty()) return TLanguageMoves::FirstPlaces(present.Count(), count);
    TStringList names = FitLangNames(SplitLangNames(setUp.LangNamesText), count);
    for (int i = 0; i < std::min(names.Count(), setUp.FormerNames.Count()); ++i)
        if (present.IndexOf(setUp.FormerNames[i]) >= 0) names.Set(i, setUp.FormerNames[i]);
    return PlacesOfLanguages(present, names);
}

TStringList MoveHeirs(TContext& context, const TFormRow& row, const TLanguageMoves& moves, TMovePhase phase) {
    TStringList losses;
    if (phase == TMovePhase::Behind)
        WithHeirs(context, row, [&](TmlCustomLang& heir) {
            if (const int lost = heir.MoveStoredLanguages(moves.Places); lost > 0)
                losses.Add(
                    Format("translations of %s: %d", heir.GetComponent()->GetOwner()->GetName(), lost));
            return true;
        });
    else if (moves.Shown() != moves.Active)
        WithHeirs(context, row, [&](TmlCustomLang& heir) {
            heir.ShowLanguage(moves.Active, moves.Shown());
            return true;
        });
    return losses;
}

void ShowBaseLanguage(TContext& context, const TFormRow& row, TmlCustomLang& lang) {
    // What the heirs do not say themselves they show then, and keep saying nothing of it.
    ShowBase(lang);
    WithHeirs(context, row, ShowBase);
}

void SetUpDispatcher(TContext& context, TmlLangDispatcher& dispatcher, const TLangSetUp& setUp) {
    const auto scope = BeginCommand(context, "Languages");
    const TLanguageMoves moves = MovesOf(dispatcher, setUp);
    const int languages = dispatcher.GetNumOfLanguages();
    SetNames(dispatcher, setUp);
    dispatcher.SetNumOfLanguages(setUp.NumLang);
    SetActive(dispatcher, moves.NewActive);
    for (TFormRow* row : LinkedRows(context, dispatcher))
        WithLinked(context, *row, dispatcher, [&](IOTAComponent&, TmlCustomLang& lang) {
            FollowDispatcher(lang, dispatcher, moves, languages);
            if (lang.GetName() == row->Component.ComponentName) row->Component.NumLang = lang.GetNumLang();
        });
    scope->Commit();
}

void SetUpComponent(TContext& context, TFormRow& row, const std::shared_ptr<IOTAComponent>& component,
                    const TLangSetUp& setUp) {
    if (const auto lang = context.Host.Runtime->AsCustomLang(component)) {
        const TLanguageMoves moves = MovesOf(*lang, setUp);
        const bool move = !moves.AreNone(lang->GetNumLang());
        if (move) MoveHeirs(context, row, moves, TMovePhase::Before);
        MoveTexts(*lang, moves);
        SetNames(*lang, setUp);
        lang->SetNumLang(setUp.NumLang);
        row.Component.NumLang = setUp.NumLang;
        SetActive(*lang, moves.NewActive);
        if (move) MoveHeirs(context, row, moves, TMovePhase::Behind);
    } else if (const auto dispatcher = context.Host.Runtime->AsDispatcher(component)) {
        SetUpDispatcher(context, *dispatcher, setUp);
    }
    MarkModifiedForm(context, row.FormName);
}

}  // namespace tml

#include "cli/Languagescommand.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>

#include "base/Errors.h"
#include "base/Format.h"
#include "cli/Formoptions.h"
#include "cli/Insertcommands.h"
#include "cli/Jsonlines.h"
#include "cli/Languagenames.h"
#include "core/Dispatchers.h"
#include "core/Formfamilies.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "translations/Langlosses.h"

namespace tml {
namespace {

struct TLanguagesOptions : TFormOptions {
    std::string Languages;
};

std::shared_ptr<TmlLangDispatcher> OwnDispatcher(TContext& context, const TFormRow& row) {
    const auto editor = GetFormEditorFromModule(GetModuleFromFileName(context, row.FileName));
    return editor == nullptr ? nullptr : FindOwnDispatcher(*context.Host.Runtime, *editor);
}

/// Those that hold for the form: of its component, else of the dispatcher that it has; nullptr for neither.
std::shared_ptr<ILanguages> LanguagesOfForm(const std::shared_ptr<TmlCustomLang>& component,
                                            const std::shared_ptr<TmlLangDispatcher>& dispatcher) {
    if (component == nullptr) return dispatcher;
    return LanguagesInForce(*component);
}

void PrintLanguages(TProgram& program, TSession& session, TFormRow& row, bool expected, std::ostream& out) {
    const TModuleLease lease(session.Context(), row.FileName);
    const auto component = GetmlLang(session.Context(), row.FormName);
    const auto languages = LanguagesOfForm(component, OwnDispatcher(session.Context(), row));
    if (expected && languages == nullptr) ExpectComponent(component, row);
    const TStringList names = languages != nullptr ? languages->GetLangNames() : TStringList();
    if (program.Json)
        TJsonLine(out)
            .Text("form", row.FormName)
            .Texts("languages", names)
            .Text("active", languages != nullptr ? languages->GetLanguage() : "");
    else
        out << row.FormName << ": " << (languages != nullptr ? names.CommaText() : "no component") << "\n";
}

/// Where the languages of a form are kept.
struct TLanguageKeeper {
    TFormRow* Row = nullptr;
    std::optional<TDispatcherPlace> Own;   ///< the dispatcher of the form; all that is linked to it follows
    std::optional<TDispatcherPlace> Link;  ///< the dispatcher of its component, which has none of its own
};

std::optional<TDispatcherPlace> PlaceIfAny(const std::shared_ptr<TmlLangDispatcher>& dispatcher) {
    return dispatcher == nullptr ? std::nullopt : std::optional(PlaceOfDispatcher(*dispatcher));
}

/// The languages of forms, set where they are kept.
class TLanguagesRun {
  public:
    TLanguagesRun(TSession& session, const std::vector<TFormRow*>& rows, const std::string& languages)
        : session_(session), names_(TStringList::FromCommaText(languages)) {
        for (TFormRow* row : AncestorsFirst(rows))
            keepers_.push_back(KeeperOf(*row));
        // What is linked to them follows, and is told of behind them.
        std::stable_partition(keepers_.begin(), keepers_.end(),
                              [](const TLanguageKeeper& keeper) { return keeper.Own.has_value(); });
        for (const TLanguageKeeper& keeper : keepers_)
            ExpectDispatcherOf(keeper);
    }

    /// Asked of all forms before the first is changed, so that nothing is written for a part of them.
    void RefuseLoss() {
        TStringList losses;
        std::vector<TFormRow*> own;
        for (const TLanguageKeeper& keeper : keepers_) {
            if (keeper.Own) AddLoss(losses, *keeper.Row);
            if (SetsOwn(keeper)) own.push_back(keeper.Row);
        }
        if (const std::string ofForms = LossesOf(session_.Context(), own, SetUp()); !ofForms.empty())
            losses.Add(ofForms);
        std::string all;
        for (const std::string& loss : losses)
            all += (all.empty() ? "" : "; ") + loss;
        if (!all.empty())
            throw EBadInput("", 0, "these languages would give up " + all,
                            "Name the others as well, or say --yes to go on");
    }

    void Set(const std::function<void(TFormRow&)>& report) {
        for (const TLanguageKeeper& keeper : keepers_)
            session_.ForEach({keeper.Row}, [&](TFormRow& row) {
                if (keeper.Own) ConfigureLangComponent(session_.Context(), &row, SetUpOf(*keeper.Own));
                if (SetsOwn(keeper)) ConfigureLangComponent(session_.Context(), &row, SetUp());
                if (session_.Answers().Errors.empty()) report(row);
            });
    }

  private:
    /// A form that cannot be read seems to keep its own: setting them tells what is wrong with it.
    TLanguageKeeper KeeperOf(TFormRow& row) {
        TLanguageKeeper keeper{&row, {}, {}};
        try {
            const TModuleLease lease(session_.Context(), row.FileName);
            keeper.Own = PlaceIfAny(OwnDispatcher(session_.Context(), row));
            const auto lang = GetmlLang(session_.Context(), row);
            if (lang != nullptr) keeper.Link = PlaceIfAny(lang->GetDispatcher());
        } catch (const EBadInput&) {
        } catch (const EmlLangSilent&) {
        }
        return keeper;
    }

    void ExpectDispatcherOf(const TLanguageKeeper& keeper) {
        const auto isIts = [&](const TLanguageKeeper& other) { return other.Own == keeper.Link; };
        if (!keeper.Link || std::any_of(keepers_.begin(), keepers_.end(), isIts)) return;
        throw EBadInput(keeper.Row->FileName, 0,
                        Format("%s is linked to the dispatcher %s of %s, which has the languages",
                               keeper.Row->FormName, keeper.Link->Name, keeper.Link->Form),
                        Format("Set them there, with --form %s, and all that is linked to it follows",
                               keeper.Link->Form));
    }

    /// A form that only has a dispatcher gets no component.
    static bool SetsOwn(const TLanguageKeeper& keeper) {
        return !keeper.Link && (!keeper.Own || keeper.Row->HasComponent());
    }

    void AddLoss(TStringList& losses, const TFormRow& row) {
        const TModuleLease lease(session_.Context(), row.FileName);
        const auto dispatcher = OwnDispatcher(session_.Context(), row);
        const std::string loss = LossOf(*dispatcher, dispatcher->GetComponent()->GetName(), SetUp());
        if (!loss.empty()) losses.Add(loss);
    }

    TLangSetUp SetUp() const { return {names_.Count(), "", "TmlCustomLang", true, names_.Text()}; }
    TLangSetUp SetUpOf(const TDispatcherPlace& dispatcher) const {
        return {names_.Count(), dispatcher.Name, "TmlLangDispatcher", false, names_.Text()};
    }

    TSession& session_;
    TStringList names_;
    std::vector<TLanguageKeeper> keepers_;
};

int RunLanguages(TProgram& program, const TLanguagesOptions& options) {
    TSession session(program, options.Project);
    const std::vector<TFormRow*> rows = session.Rows(options.Forms);
    if (options.Languages.empty()) {
        session.ForEach(rows,
                        [&](TFormRow& row) { PrintLanguages(program, session, row, false, std::cout); });
        return session.ExitCode();
    }
    TLanguagesRun run(session, rows, options.Languages);
    if (!program.Yes) run.RefuseLoss();
    std::ostringstream report;  // told when the files are written, not before
    const auto scope = session.Modules().BeginCommand("Languages");
    run.Set([&](TFormRow& row) { PrintLanguages(program, session, row, true, report); });
    session.Ide().SaveAll();
    scope->Commit();
    program.HasWritten = true;
    std::cout << report.str();
    return session.ExitCode();
}

}  // namespace

void AddLanguagesCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TLanguagesOptions>();
    CLI::App* command =
        AddFormOptions(AddCommand(app, "languages", "List or set the languages of forms",
                                  "  tmllang languages Orchard.dproj\n"
                                  "  tmllang languages Orchard.dproj --form MainForm --set English,German"),
                       *options);
    CLI::Option* set = command->add_option(
        "--set", options->Languages,
        "The languages in order, separated by commas; a form without a component gets one. Those of a "
        "dispatcher are set on its form, and all that is linked to it follows");
    set->check(CLI::Validator(CheckLanguageNames, ""));
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return RunLanguages(shared, *options); };
    });
}

}  // namespace tml
